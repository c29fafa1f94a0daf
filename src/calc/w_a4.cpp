#include "calc/w_a4.h"

#include <array>

#include "calc/worksheet.h"
#include "common/sql_text.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"Explanation", FieldType::Text, 40},
    Column{"Col_1", FieldType::Text, 1},
    Column{"Col_2", FieldType::Text, 40},
    Column{"Col_3"},
    Column{"Col_4"},
    Column{"Col_5", FieldType::Text, 40},
    Column{"Col_6"},
    Column{"Col_7"},
};

}  // namespace

constexpr std::array<FixedRow, 1> kLinesA4{{{30_cur, "TOTAL RECLASSIFICATIONS", "0,0", LineKind::Total}}};

namespace {

constexpr std::array<std::string_view, 2> kTotals{"Col_4", "Col_7"};

// And binds before Or: a zero is cleared on line 30 too, which has none.
constexpr std::array kSync{
    "UPDATE A4 SET Col_2 = Null, Col_3 = Null, Col_4 = Null WHERE Col_3=0 Or Col_3 Is Null And LineNum < 30;",
    "UPDATE A4 SET Col_5 = Null, Col_6 = Null, Col_7 = Null WHERE Col_6=0 Or Col_6 Is Null And LineNum < 30;",
    "UPDATE A4 INNER JOIN CostCenters ON A4.Col_3 = CostCenters.CCNum SET A4.Col_2 = [CCName];",
    "UPDATE A4 INNER JOIN CostCenters ON A4.Col_6 = CostCenters.CCNum SET A4.Col_5 = [CCName];",
};

// The printed form has 29 lines; what goes beyond is numbered in hundredths behind the last.
Currency Next_Line(Currency line) {
    return line < 29_cur ? line.Int() + 1_cur : line + 0.01_cur;
}

}  // namespace

void Build_A4() {
    Build_Table("A4", kColumns, "LineNum,Explanation,Col_4,Col_7", kLinesA4, "ndx");
}

void Calc_A4() {
    Store_Totals("A4", kTotals, "LineNum < 30", "LineNum = 30");
}

void Sync_A4() {
    Execute_All(kSync);
}

Currency Next_A4_Line() {
    return Next_Line(Read_Currency("SELECT Max(LineNum) AS HighLN FROM A4 WHERE LineNum < 30;"));
}

Currency Add_A4_Row() {
    const Currency line = Next_A4_Line();
    db.Execute(Sql("Insert Into A4 (LineNum, Col_4, Col_7) Values (", line, ", 0, 0);"));
    return line;
}

void Delete_A4_Row(Currency line) {
    db.Execute(Sql("DELETE FROM A4 WHERE LineNum = ", line, ";"));
    db.Execute(Sql("UPDATE A4 SET LineNum = LineNum-1 WHERE LineNum <= 29 And LineNum > ", line, ";"));
    db.Execute(
        Sql("UPDATE A4 SET LineNum = LineNum-.01 WHERE LineNum > 29 And LineNum > ", line, " And LineNum < 30;"));
}

void Renumber_A4() {
    db.Execute("DELETE From A4 WHERE Col_3 Is Null AND Col_6 Is Null AND LineNum<30;");
    db.Execute("UPDATE A4 SET LineNum = [LineNum]+10000 WHERE LineNum<30;");
    Recordset rows = db.OpenRecordset("SELECT LineNum From A4 WHERE LineNum>30 ORDER BY Col_1, LineNum;");
    Currency line{};
    for (; !rows.Eof(); rows.MoveNext()) {
        line = Next_Line(line);
        rows.Edit();
        rows.Fields("LineNum").Set(line);
        rows.Update();
    }
    rows.Close();
}

}  // namespace tallmar
