#include <array>

#include "calc/w_c.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"Description", FieldType::Text, 40},
    Column{"Col_1"},                     // cost center number
    Column{"Col_2"},                     // total cost from B
    Column{"Col_3"},                     // total charges
    Column{"Col_4", FieldType::Double},  // ratio
    Column{"Col_5"},                     // Part A covered charges
    Column{"Col_6"},                     // Part B charges subject
    Column{"Col_601"},                   // Part B charges not subject
    Column{"Col_7"},
    Column{"Col_8"},  // costs of the charges, in the same order
    Column{"Col_9"},
    Column{"Col_901"},
    Column{"Col_10"},
};

// The chart's supplies and drugs, three lines further down. A name that fills its field is cut to fit this one.
constexpr const char* kFromChart =
    "INSERT INTO Cp3 (LineNum, Description, Col_1, Col_2, Col_3, Col_5, Col_6, Col_601, Col_7, Col_8, Col_9, Col_901, "
    "Col_10) Select [LineNum]+3 As E1, Left$(\"Cost of \" & IIF([LineNum] = 12,\"Medical \",\"\") & CCName,40) As E2, "
    "CCNum, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 From CostCenters Where ";

constexpr const char* kFields =
    "LineNum, Description, Col_1, Col_2, Col_3, Col_5, Col_6, Col_601, Col_7, Col_8, Col_9, Col_901, Col_10";

}  // namespace

constexpr std::array<FixedRow, 2> kLinesCp3{{
    {15.01_cur, "Cost of Medical Supplies", "12,0,0,0,0,0,0,0,0,0,0"},
    {16.01_cur, "Cost of Drugs", "13,0,0,0,0,0,0,0,0,0,0"},
}};

namespace {

// The first step reads a Null total of B as 0. The last, behind the ratios, brings in the cost of line 16.2 as B has
// it, Null included.
constexpr std::array kSteps{
    "UPDATE Cp3 INNER JOIN B ON Cp3.LineNum = B.LineNum+3 SET Cp3.Col_2 = IIf(IsNull(B.Total),0,B.Total) "
    "WHERE Int(B.LineNum) IN(12,13);",
    "UPDATE Cp3 INNER JOIN B ON Cp3.LineNum = B.LineNum+3.01 SET Cp3.Col_2 = IIf(IsNull(B.Total),0,B.Total) "
    "WHERE B.LineNum IN(12,13);",
    "UPDATE Cp3 SET Col_4 = IIF(Col_3<>0, INT(((Col_2 / Col_3) * 1000000) +.5) / 1000000,NULL);",
    "UPDATE Cp3 SET Col_8 = INT(IIF(IsNull(Col_4),0,Col_4) * IIF(IsNull(Col_5),0,Col_5) + .5), "
    "Col_9 = INT(IIF(IsNull(Col_4),0,Col_4) * IIF(IsNull(Col_6),0,Col_6) + .5), "
    "Col_901 = INT(IIF(IsNull(Col_4),0,Col_4) * IIF(IsNull(Col_601),0,Col_601) + .5), "
    "Col_10 = INT(IIF(IsNull(Col_4),0,Col_4) * IIF(IsNull(Col_7),0,Col_7) + .5);",
    "UPDATE Cp3, B SET Col_2 = [Total] WHERE (((Cp3.LineNum)=16.2) AND ((B.LineNum)=13.2));",
};

}  // namespace

void Build_Cp3() {
    Create_Table("Cp3", kColumns);
    Insert_Cp3_Rows("Int(LineNum) = 12 Or Int(LineNum) = 13");
    for (const FixedRow& row : kLinesCp3) {
        // A subline 12.01 or 13.01 of the chart has the number already.
        const bool taken =
            static_cast<bool>(db.Read_Row("SELECT LineNum FROM Cp3 WHERE LineNum = " + row.line.To_Text() + ";"));
        if (!taken) Insert_Rows("Cp3", kFields, std::span(&row, 1));
    }
    Finish_Table("Cp3", "ndxCp3");
}

void Insert_Cp3_Rows(std::string_view where) {
    db.Execute(Sql(kFromChart, where, ";"));
}

void Calc_Cp3() {
    Execute_All(kSteps);
}

}  // namespace tallmar
