#include <array>

#include "calc/w_c.h"
#include "calc/worksheet.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{Column{"LineNum"}, Column{"Description", FieldType::Text, 40},
                              Column{"Col_1"},   Column{"Col_2"},
                              Column{"Col_3"},   Column{"Col_4"}};

}  // namespace

// The line of worksheet B, then cost and visits.
constexpr std::array<FixedRow, 7> kLinesCp1{{
    {1_cur, "Skilled Nursing", "6,0,0"},
    {2_cur, "Physical Therapy", "7,0,0"},
    {3_cur, "Occupational Therapy", "8,0,0"},
    {4_cur, "Speech Pathology", "9,0,0"},
    {5_cur, "Medical Social Services", "10,0,0"},
    {6_cur, "Home Health Aide Services", "11,0,0"},
    {7_cur, "Total", "Null,0,0", LineKind::Total},
}};

namespace {

constexpr std::array kSteps{
    "UPDATE Cp1 INNER JOIN B ON Cp1.LineNum = B.LineNum-5 SET Cp1.Col_2 = IIf(IsNull(B.Total),0,B.Total) "
    "WHERE (B.LineNum >= 6 ) AND (B.LineNum <= 11 );",
    "UPDATE Cp1 INNER JOIN S3p1 ON Cp1.LineNum = S3p1.LineNum SET Cp1.Col_3 = IIf(IsNull(S3p1.Col_5),0,S3p1.Col_5) "
    "WHERE Cp1.LineNum < 7;",
    "UPDATE Cp1 SET Col_4 = IIF(Col_3>0,int(((Col_2/Col_3)*100)+.5)/100.0,0) WHERE (LineNum < 7);",
};

constexpr std::array<std::string_view, 2> kTotals{"Col_2", "Col_3"};

}  // namespace

void Build_Cp1() {
    Build_Table("Cp1", kColumns, "LineNum, Description,Col_1,Col_2,Col_3", kLinesCp1, "ndx");
}

void Calc_Cp1() {
    Execute_All(kSteps);
    Store_Totals("Cp1", kTotals, "LineNum < 7", "LineNum = 7");
}

}  // namespace tallmar
