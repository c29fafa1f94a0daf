#include <array>

#include "calc/w_f.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

// One pair a fund: detail in the odd column, totals in the even one.
constexpr std::array kColumns{
    Column{"LineNum"}, Column{"Description", FieldType::Text, 60},
    Column{"Col_1"},   Column{"Col_2"},
    Column{"Col_3"},   Column{"Col_4"},
    Column{"Col_5"},   Column{"Col_6"},
    Column{"Col_7"},   Column{"Col_8"},
};

constexpr const char* kNone = "Null,Null,Null,Null,Null,Null,Null,Null";
constexpr const char* kDetail = "0,Null,0,Null,0,Null,0,Null";
constexpr const char* kTotal = "Null,0,Null,0,Null,0,Null,0";

}  // namespace

constexpr std::array<FixedRow, 9> kLinesF2{{
    {1_cur, "Fund balances at beginning of period", kTotal},
    {2_cur, "Net Income(loss)' accounts", kNone},
    {3_cur, "Total", kNone, LineKind::Total},
    {4_cur, "Additions", kDetail},
    {9_cur, "Total Additions", kNone, LineKind::Total},
    {10_cur, "Subtotal", kNone, LineKind::Total},
    {11_cur, "Deductions", kDetail},
    {16_cur, "Total Deductions", kNone, LineKind::Total},
    {17_cur, "Fund balance at end of period per balance sheet", kNone},
}};

namespace {

using Funds = std::array<Currency, 4>;

Funds Read_Funds(const char* columns, const char* where) {
    const Row row = db.Read_Row(Sql("SELECT ", columns, " FROM F2 WHERE ", where, ";"));
    return {Nz_Currency(row[0]), Nz_Currency(row[1]), Nz_Currency(row[2]), Nz_Currency(row[3])};
}

Funds Sum_Detail(const char* where) {
    return Read_Funds("SUM(Col_1) AS Sum1,SUM(Col_3) AS Sum3,SUM(Col_5) AS Sum5,SUM(Col_7) AS Sum7", where);
}

Funds Sum_Totals(const char* where) {
    return Read_Funds("SUM(Col_2) AS Sum2,SUM(Col_4) AS Sum4,SUM(Col_6) AS Sum6,SUM(Col_8) AS Sum8", where);
}

void Store_Totals_Of(int line, const Funds& amounts) {
    db.Execute(Sql("UPDATE F2 SET Col_2=", amounts[0], ", Col_4=", amounts[1], ", Col_6=", amounts[2],
                   ", Col_8=", amounts[3], " WHERE LineNum=", line, ";"));
}

Funds Plus(Funds a, const Funds& b) {
    for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
    return a;
}

Funds Minus(Funds a, const Funds& b) {
    for (std::size_t i = 0; i < a.size(); ++i) a[i] -= b[i];
    return a;
}

}  // namespace

void Build_F2() {
    Build_Table("F2", kColumns, "LineNum,Description,Col_1,Col_2,Col_3,Col_4,Col_5,Col_6,Col_7,Col_8", kLinesF2, "ndx");
}

void Calc_F2() {
    const Currency income = Read_Currency("SELECT Col_2 FROM F1 WHERE LineNum = 33 ;");
    db.Execute(Sql("UPDATE F2 SET Col_2=", income, " WHERE LineNum=2;"));
    const Funds opening = Sum_Totals("LineNum < 3");
    Store_Totals_Of(3, opening);
    const Funds additions = Sum_Detail("LineNum BETWEEN 4 AND 8.99");
    Store_Totals_Of(9, additions);
    const Funds subtotal = Plus(opening, additions);
    Store_Totals_Of(10, subtotal);
    const Funds deductions = Sum_Detail("LineNum BETWEEN 11 AND 15.99");
    Store_Totals_Of(16, deductions);
    Store_Totals_Of(17, Minus(subtotal, deductions));
}

}  // namespace tallmar
