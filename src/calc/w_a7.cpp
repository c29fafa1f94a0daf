#include "calc/w_a7.h"

#include <array>

#include "calc/worksheet.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"}, Column{"Description", FieldType::Text, 255},
    Column{"Col_1"},   Column{"Col_2"},
    Column{"Col_3"},   Column{"Col_4"},
    Column{"Col_5"},   Column{"Col_6"},
};

constexpr const char* kZeroes = "0,0,0,0,0,0";

}  // namespace

constexpr std::array<FixedRow, 7> kLinesA7{{
    {1_cur, "Land", kZeroes},
    {2_cur, "Land Improvements", kZeroes},
    {3_cur, "Buildings & Fixtures", kZeroes},
    {4_cur, "Building Improvements", kZeroes},
    {5_cur, "Fixed Equipment", kZeroes},
    {6_cur, "Movable Equipment", kZeroes},
    {7_cur, "TOTAL", kZeroes, LineKind::Total},
}};

namespace {

// Column 3, donations, is not among them.
constexpr std::array<std::string_view, 5> kTotals{"Col_1", "Col_2", "Col_4", "Col_5", "Col_6"};

}  // namespace

void Build_A7() {
    Build_Table("A7", kColumns, "LineNum,Description,Col_1,Col_2,Col_3,Col_4,Col_5,Col_6", kLinesA7, "ndx");
}

void Calc_A7() {
    db.Execute(
        "UPDATE A7 SET Col_4 = IIF(IsNull(Col_2),0,Col_2)+IIF(IsNull(Col_3),0,Col_3), "
        "Col_6 = IIF(IsNull(Col_1),0,Col_1)+(IIF(IsNull(Col_2),0,Col_2)+IIF(IsNull(Col_3),0,Col_3))"
        "-IIF(IsNull(Col_5),0,Col_5) WHERE LineNum < 7;");
    Store_Totals("A7", kTotals, "LineNum < 7", "LineNum = 7");
}

}  // namespace tallmar
