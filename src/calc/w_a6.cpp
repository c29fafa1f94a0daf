#include "calc/w_a6.h"

#include <array>

#include "calc/worksheet.h"
#include "common/sql_text.h"

namespace tallmar {

namespace {

constexpr std::array kPartA{Column{"Question", FieldType::Text, 128}, Column{"Answer", FieldType::Text, 1}};

constexpr std::array kPartB{
    Column{"LineNum"},
    Column{"Col_1"},
    Column{"Col_2", FieldType::Text, 128},
    Column{"Col_3", FieldType::Text, 128},
    Column{"Col_4"},
    Column{"Col_5"},
    Column{"Col_6"},
};

}  // namespace

constexpr std::array<FixedRow, 1> kLinesA6pB{{{4_cur, "TOTALS", "0,0", LineKind::Total}}};

namespace {
constexpr std::array<std::string_view, 3> kPartBTotals{"Col_4", "Col_5", "Col_6"};

constexpr std::array kPartC{
    Column{"LineNum"},
    Column{"Description", FieldType::Text, 36},
    Column{"Col_1", FieldType::Text, 1},
    Column{"Col_2", FieldType::Text, 128},
    Column{"Col_3", FieldType::Text, 128},
    Column{"Col_4", FieldType::Double},
    Column{"Col_5", FieldType::Double},
    Column{"Col_6", FieldType::Text, 128},
};

}  // namespace

void Build_A6pA() {
    Create_Table("A6pA", kPartA);
    db.Execute(
        "INSERT INTO A6pA (Question, Answer) VALUES ('Are there any costs included in Worksheet A which resulted from "
        "transactions with related organizations?', 'N');");
    Finish_Table("A6pA", "");
}

void Build_A6pB() {
    Build_Table("A6pB", kPartB, "LineNum,Col_2,Col_5,Col_6", kLinesA6pB, "ndx");
}

void Calc_A6pB() {
    db.Execute("UPDATE A6pB SET Col_6 = IIF(IsNull(Col_4),0,Col_4)-IIF(IsNull(Col_5),0,Col_5) WHERE LineNum < 4;");
    Store_Totals("A6pB", kPartBTotals, "LineNum < 4", "LineNum = 4");
}

void Build_A6pC() {
    Build_Table("A6pC", kPartC, "", {}, "ndxA6pC");
}

Currency Add_A6pC_Row(Currency after) {
    const Currency line = after + 1_cur;
    db.Execute(Sql("UPDATE A6pC SET LineNum = LineNum+1000 WHERE LineNum > ", after));
    db.Execute("UPDATE A6pC SET LineNum = LineNum-999 WHERE LineNum >= 1000;");
    db.Execute(Sql("INSERT INTO A6pC (LineNum,Col_4,Col_5) VALUES (", line, ",0,0);"));
    return line;
}

void Delete_A6pC_Row(Currency line) {
    db.Execute(Sql("DELETE FROM A6pC WHERE LineNum = ", line));
    db.Execute(Sql("UPDATE A6pC SET LineNum = LineNum-1 WHERE LineNum > ", line));
}

}  // namespace tallmar
