#include "calc/w_sp2.h"

#include <array>

#include "calc/worksheet.h"
#include "report/registry.h"
#include "report/run_log.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{Column{"LineNum"}, Column{"Description", FieldType::Text, 250}, Column{"Col_1"},
                              Column{"Col_2"}};

}  // namespace

constexpr std::array<FixedRow, 2> kLinesSp2{{
    {1_cur, "HOME HEALTH AGENCY", "0,0"},
    {4_cur, "TOTAL", "Null,Null", LineKind::Total},
}};

namespace {

constexpr std::array<std::string_view, 2> kSettlement{"Col_1", "Col_2"};

void Log_Line(std::string_view message) {
    Log_Calc("W_S_", "Calc_Sp2", "Sp2", message);
}

}  // namespace

void Build_Sp2() {
    Build_Table("Sp2", kColumns, "LineNum,Description,Col_1,Col_2", kLinesSp2, "ndx");
}

void Calc_Sp2() {
    Log_Line("Worksheet S Part-2 Calculation");
    if (TableExists("Dp2", true)) {
        Store_Row("Sp2", kSettlement, db.Read_Row("SELECT Col_1,Col_2 FROM Dp2 WHERE LineNum = 29;"),
                  "LineNum In(1,4)");
    }
    Log_Line("Worksheet S Part-2 calculation completed.");
}

}  // namespace tallmar
