#include <array>
#include <string>
#include <vector>

#include "calc/w_c.h"
#include "calc/worksheet.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"}, Column{"Description", FieldType::Text, 40}, Column{"Col_1"},  // line of Part I
    Column{"Col_2"},                                                                 // cost per visit
    Column{"Col_3"},                                                                 // visits before 1/1/98
    Column{"Col_4"},                                                                 // cost of the first period
    Column{"Col_5"},                                                                 // visits on or after 1/1/98
    Column{"Col_501"},                                                               // ... before 1/1/99
    Column{"Col_502"},                                                               // ... on or after it
    Column{"Col_6"},                                                                 // cost of the second period
    Column{"Col_7"},  // ... after the reduction by a tenth
    Column{"Col_8"},  // reasonable cost net of the reduction
};

}  // namespace

constexpr std::array<FixedRow, 4> kLinesCp5{{
    {25_cur, "Physical Therapy", "2,0,0,0,0,0,0,0,0,0"},
    {26_cur, "Occupational Therapy", "3,0,0,0,0,0,0,0,0,0"},
    {27_cur, "Speech Pathology", "4,0,0,0,0,0,0,0,0,0"},
    {28_cur, "Total", "Null,Null,0,0,0,0,0,0,0,0", LineKind::Total},
}};

namespace {

constexpr std::array kSteps{
    "UPDATE Cp5 INNER JOIN Cp1 ON Cp5.LineNum = Cp1.LineNum+23 SET Cp5.Col_2 = IIf(IsNull(Cp1.Col_4),0,Cp1.Col_4) "
    "WHERE Cp1.LineNum IN(2,3,4);",
    "UPDATE Cp5 SET Col_4 = INT(IIF(IsNull(Col_2),0,Col_2) * IIF(IsNull(Col_3),0,Col_3) + .5) WHERE LineNum < 28;",
    "UPDATE Cp5 SET Col_6 = INT(IIF(IsNull(Col_2),0,Col_2) * IIF(IsNull(Col_5),0,Col_5) + .5) WHERE LineNum < 28;",
    "UPDATE Cp5 SET Col_7 = INT(Col_6 * .9 + .5) WHERE LineNum < 28;",
    "UPDATE Cp5 SET Col_8 = Col_4 + Col_7 WHERE LineNum < 28;",
};

}  // namespace

void Build_Cp5() {
    Build_Table("Cp5", kColumns, "LineNum,Description,Col_1,Col_2,Col_3,Col_4,Col_5,Col_501,Col_502,Col_6,Col_7,Col_8",
                kLinesCp5, "ndx");
}

void Calc_Cp5() {
    Execute_All(kSteps);
    // Every column that the table has is totalled, but for the reference to Part I and the average.
    const TableShape shape = db.TableDefs().Item("Cp5").Shape();
    std::vector<std::string_view> totals;
    for (const FieldDef& field : shape.fields) {
        if (field.name.starts_with("Col_") && field.name != "Col_1" && field.name != "Col_2")
            totals.push_back(field.name);
    }
    Store_Totals("Cp5", totals, "LineNum < 28", "LineNum = 28");
}

}  // namespace tallmar
