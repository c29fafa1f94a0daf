#include "structure/vaccine_line.h"

#include <array>
#include <stdexcept>

#include "calc/stat_columns.h"
#include "calc/w_c.h"
#include "calc/worksheet.h"
#include "common/dates.h"
#include "common/sql_text.h"
#include "structure/line_references.h"

namespace tallmar {

namespace {

// Line 13.2 of A takes no salaries, benefits and contracted services: they stay shaded.
constexpr std::array kRowOfA{
    "INSERT INTO A SELECT LineNum, CCNum, CCGroup, CCName FROM CostCenters WHERE LineNum = 13.2;",
    "UPDATE A SET Col_3=0, Col_5=0, Col_6=0, Col_7=0, Col_8=0, Col_9=0, Col_10=0 Where LineNum = 13.2;",
};
constexpr const char* kRowOfB1 =
    "INSERT INTO B1 SELECT LineNum, CCNum, CCName, CCType, LineType FROM CostCenters WHERE LineNum = 13.2;";

void Add_To_A() {
    Execute_All(kRowOfA);
}
void Add_To_B1() {
    db.Execute(kRowOfB1);
    ShapeStats("B1");
}
void Add_To_Cp3() {
    Insert_Cp3_Rows("LineNum = 13.2");
}

struct VaccineRow {
    std::string_view table;
    void (*add)();
};
constexpr std::array kRows{
    VaccineRow{"A", Add_To_A},
    VaccineRow{"B1", Add_To_B1},
    VaccineRow{"Cp3", Add_To_Cp3},
};

const VaccineRow& Row_Of(const Item& item) {
    for (const VaccineRow& row : kRows) {
        if (row.table == item.Name()) return row;
    }
    throw std::invalid_argument("no vaccine line: " + item.Name());
}

bool Any_Row(std::string_view table, std::string_view where) {
    return static_cast<bool>(db.Read_Row(Sql("SELECT LineNum FROM ", table, " WHERE ", where, ";")));
}

}  // namespace

bool Has_Vaccine_Line(const Item& item) {
    if (openReport.FYEnd < kVaccineLineFrom || !Any_Row("CostCenters", "LineNum = 13.2")) return true;
    const std::string_view table = Row_Of(item).table;
    return Any_Row(table, Where_Names(*Row_Reference(table), 13.2_cur));
}

void Add_Vaccine_Line(const Item& item) {
    Row_Of(item).add();
}

}  // namespace tallmar
