#include "calc/w_a.h"

#include <array>

#include "calc/worksheet.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"CCNum"},
    Column{"CCGroup", FieldType::Integer},
    Column{"CCName", FieldType::Text, 40},
    Column{"Col_1"},
    Column{"Col_2"},
    Column{"Col_3"},
    Column{"Col_4"},
    Column{"Col_5"},
    Column{"Col_6"},
    Column{"Col_7"},
    Column{"Col_8"},
    Column{"Col_9"},
    Column{"Col_10"},
};

}  // namespace

constexpr std::array<FixedRow, 1> kLinesA{{{29_cur, "Total", "", LineKind::Total}}};

namespace {

constexpr const char* kFromChart = "INSERT INTO A SELECT LineNum, CCNum, CCGroup, CCName FROM CostCenters;";

// Lines 1 and 2 take no salaries, benefits and contracted services: the form shades them.
constexpr std::array kDefaults{
    "CREATE UNIQUE INDEX ndxA ON A (LineNum);",
    "UPDATE A SET Col_1=0, Col_2=0, Col_4=0 WHERE LineNum NOT In(1,2);",
    "UPDATE A SET Col_3=0, Col_5=0, Col_6=0, Col_7=0, Col_8=0, Col_9=0, Col_10=0;",
};

// Until 10/1/2000 the compensation analyses are the source of three columns.
constexpr std::array kFromCompensation{
    "UPDATE A INNER JOIN A1 ON A.LineNum = A1.LineNum SET A.Col_1 = [A1].[Col_9] WHERE A.LineNum<29;",
    "UPDATE A INNER JOIN A2 ON A.LineNum = A2.LineNum SET A.Col_2 = [A2].[Col_9] WHERE A.LineNum<29;",
    "UPDATE A INNER JOIN A3 ON A.LineNum = A3.LineNum SET A.Col_4 = [A3].[Col_9] WHERE A.LineNum<29;",
};

// Line 5 of A-5 is the total of A-6 Part B, which posts itself.
constexpr std::array kPostings{
    "UPDATE A SET Col_7 = 0, Col_9 = 0 WHERE LineNum<29;",
    "UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_3 "
    "SET A.Col_7 = A.Col_7+IIF(IsNull([A4].[Col_4]),0,[A4].[Col_4]) WHERE A4.LineNum<30;",
    "UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_6 "
    "SET A.Col_7 = A.Col_7-IIF(IsNull([A4].[Col_7]),0,[A4].[Col_7]) WHERE A4.LineNum<30;",
    "UPDATE A INNER JOIN A5 ON A.LineNum = A5.Col_4 "
    "SET A.Col_9 = A.Col_9+IIF(IsNull([A5].[Col_2]),0,[A5].[Col_2]) WHERE (A5.LineNum<21) AND (A5.LineNum<>5);",
    "UPDATE A INNER JOIN A6pB ON A.LineNum = A6pB.Col_1 "
    "SET A.Col_9 = A.Col_9-IIF(IsNull([A6pB].[Col_6]),0,[A6pB].[Col_6]) WHERE A6pB.LineNum<4;",
};

constexpr std::array kLineFormulas{
    "UPDATE A SET Col_6 = IIF(IsNull(Col_1),0,Col_1)+IIF(IsNull(Col_2),0,Col_2)+IIF(IsNull(Col_3),0,Col_3)"
    "+IIF(IsNull(Col_4),0,Col_4)+IIF(IsNull(Col_5),0,Col_5) WHERE LineNum < 29;",
    "UPDATE A SET Col_8 = IIF(IsNull(Col_6),0,Col_6)+IIF(IsNull(Col_7),0,Col_7) WHERE LineNum < 29;",
    "UPDATE A SET Col_10 = IIF(IsNull(Col_8),0,Col_8)+IIF(IsNull(Col_9),0,Col_9) WHERE LineNum < 29;",
};

constexpr std::array<std::string_view, 10> kTotals{"Col_1", "Col_2", "Col_3", "Col_4", "Col_5",
                                                   "Col_6", "Col_7", "Col_8", "Col_9", "Col_10"};

}  // namespace

void Build_A() {
    Create_Table("A", kColumns);
    db.Execute(kFromChart);
    Insert_Rows("A", "LineNum,CCName", kLinesA);
    Execute_All(kDefaults);
    Finish_Table("A", "");
}

void Calc_A() {
    if (Is_Cost_Limit_Period()) Execute_All(kFromCompensation);
    Execute_All(kPostings);
    Execute_All(kLineFormulas);
    Store_Totals("A", kTotals, "LineNum < 29", "LineNum = 29");
}

}  // namespace tallmar
