#include "calc/w_a5.h"

#include <array>

#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "report/registry.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"}, Column{"Description", FieldType::Text, 90}, Column{"Col_1", FieldType::Text, 5},
    Column{"Col_2"},   Column{"Col_3", FieldType::Text, 40},       Column{"Col_4"},
};

}  // namespace

constexpr std::array<FixedRow, 15> kLinesA5{{
    {1_cur, "Excess funds generated from operations, other than net income", "'B',0"},
    {2_cur, "Trade, quantity, time and other discounts on purchases", "'B',0"},
    {3_cur, "Rebates & refunds of expenses", "'B',0"},
    {4_cur, "Home office costs", "'A',0"},
    {5_cur, "Adjustments resulting from transaction with related org.", "'A-6',0"},
    {6_cur, "Sale of medical records and abstracts", "'B',0"},
    {7_cur, "Income from imposition of of interest, finance, or penalty charges", "'B',0"},
    {8_cur, "Sale of medical & surgical supplies to other than patients", "'A',0"},
    {9_cur, "Sale of drugs to other than patients", "'A',0"},
    {10_cur, "Physical therapy adjustment", "'A-8-3',0"},
    {10.1_cur, "Occupational therapy adjustment", "'A-8-3',0"},
    {10.2_cur, "Speech pathology adjustment", "'A-8-3',0"},
    {11_cur, "Interest expense on Medicare overpayments and borrowings to repay Medicare overpayments", "'A',0"},
    {12_cur, "Lobbying activities", "'A',0"},
    {21_cur, "TOTAL", "Null,0", LineKind::Total},
}};

namespace {

// A therapy line, the cost center that it adjusts, and the limitation worksheet that gives its amount.
struct Therapy {
    Currency line;
    const char* costCenter;
    Currency ccNum;
    const char* limitation;
};

constexpr std::array<Therapy, 3> kTherapies{{
    {10_cur, "Physical Therapy", 7_cur, "A83p5P"},
    {10.1_cur, "Occupational Therapy", 8_cur, "A83p5O"},
    {10.2_cur, "Speech Pathology", 9_cur, "A83p5S"},
}};

constexpr Currency kFirstUserLine = 13_cur;
constexpr Currency kTotalLine = 21_cur;
constexpr Currency kStep = 0.01_cur;

bool Is_User_Line(Currency line) {
    return line >= kFirstUserLine && line < kTotalLine;
}

// The first line behind `line` that is free, at most the total.
Currency First_Free_Line(Currency line) {
    Recordset next =
        db.OpenRecordset(Sql("Select LineNum From A5 WHERE LineNum > ", line, " And LineNum < 21 Order by LineNum;"),
                         RecordsetType::Snapshot);
    Currency free = line + kStep;
    for (; !next.Eof() && next["LineNum"].To_Currency() == free; next.MoveNext()) free += kStep;
    return free;
}

}  // namespace

void Build_A5() {
    Create_Table("A5", kColumns);
    Insert_Rows("A5", "LineNum,Description,Col_1,Col_2", kLinesA5);
    for (const Therapy& therapy : kTherapies) {
        db.Execute(Sql("UPDATE A5 SET Col_3=", Quoted(therapy.costCenter), ", Col_4=", therapy.ccNum,
                       " WHERE LineNum = ", therapy.line, ";"));
    }
    Finish_Table("A5", "ndx");
}

void Calc_A5() {
    const Currency related = Read_Currency("SELECT Col_6 AS Val FROM A6pB WHERE LineNum = 4;");
    db.Execute(Sql("UPDATE A5 SET Col_2=", -related, " WHERE LineNum = 5;"));
    for (const Therapy& therapy : kTherapies) {
        double limit = 0;
        if (Is_Cost_Limit_Period() && TableExists(therapy.limitation, true)) {
            limit = Read_Number(Sql("SELECT Col_1 AS Val FROM ", therapy.limitation, " WHERE LineNum = 49;"));
        }
        db.Execute(Sql("UPDATE A5 SET Col_2=", 0.0 - limit, " WHERE LineNum = ", therapy.line, ";"));
    }
    const Currency sum = Read_Currency("SELECT Sum(Col_2) AS Sum FROM A5 WHERE LineNum < 21;");
    db.Execute(Sql("UPDATE A5 SET Col_2=", sum, " WHERE LineNum = 21;"));
}

Currency Add_A5_Row(Currency after) {
    if (!Is_User_Line(after)) {
        after = Read_Currency("Select Max(LineNum) as HighLN From A5 Where LineNum>=13 And LineNum<21;");
        if (after < kFirstUserLine) after = kFirstUserLine - kStep;
    }
    const Currency line = after + kStep;
    const Currency free = First_Free_Line(after);
    if (free > line && free < kTotalLine) {
        db.Execute(Sql("UPDATE A5 SET LineNum = LineNum+1000 WHERE LineNum > ", after, " AND LineNum < ", free, ";"));
        db.Execute("UPDATE A5 SET LineNum = LineNum-999.99 WHERE LineNum >= 1000;");
    }
    db.Execute(Sql("INSERT INTO A5 (LineNum) VALUES (", line, ");"));
    return line;
}

void Delete_A5_Row(Currency line) {
    if (!Is_User_Line(line)) return;
    db.Execute(Sql("DELETE FROM A5 WHERE LineNum = ", line, ";"));
    db.Execute(Sql("UPDATE A5 SET LineNum = LineNum-.01 WHERE LineNum > ", line, " AND LineNum < 21;"));
}

}  // namespace tallmar
