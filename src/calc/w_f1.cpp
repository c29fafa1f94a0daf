#include <array>

#include "calc/w_f.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{Column{"LineNum"}, Column{"Description", FieldType::Text, 60}, Column{"Col_1"},
                              Column{"Col_2"}};

// Detail is in the first column, totals are in the second.
constexpr const char* kDetail = "0,Null";
constexpr const char* kTotal = "Null,0";

}  // namespace

// Lines without a label are the user's.
constexpr std::array<FixedRow, 33> kLinesF1{{
    {1_cur, "Total patient revenues", kDetail},
    {2_cur, "Less: Allowances and discounts on patients' accounts", kDetail},
    {3_cur, "Net patient revenues", kTotal},
    {4_cur, "Operating expenses", kDetail},
    {5_cur, "Additions to operating expenses", kDetail},
    {6_cur, "", kDetail},
    {7_cur, "", kDetail},
    {8_cur, "", kDetail},
    {9_cur, "", kDetail},
    {10_cur, "", kDetail},
    {11_cur, "Subtractions from operating expenses", kDetail},
    {12_cur, "", kDetail},
    {13_cur, "", kDetail},
    {14_cur, "", kDetail},
    {15_cur, "", kDetail},
    {16_cur, "", kDetail},
    {17_cur, "Less total operating expenses", kTotal},
    {18_cur, "Net income from service to patients", kTotal},
    {19_cur, "Contributions, donations, bequests, etc.", kDetail},
    {20_cur, "Income from investments", kDetail},
    {21_cur, "Purchase discounts", kDetail},
    {22_cur, "Rebates and refunds of expenses", kDetail},
    {23_cur, "Sale of Medical and Nursing Supplies to other than patients", kDetail},
    {24_cur, "Sale of durable medical equipment to other than patients", kDetail},
    {25_cur, "Sale of drugs to other than patients", kDetail},
    {26_cur, "Sale of medical records and abstracts", kDetail},
    {27_cur, "Other revenues", kDetail},
    {28_cur, "Income from Other Entity", kDetail},
    {29_cur, "", kDetail},
    {30_cur, "", kDetail},
    {31_cur, "", kDetail},
    {32_cur, "Total Other Income", kTotal, LineKind::Total},
    {33_cur, "Net Income or Loss for the period", kTotal},
}};

namespace {

Currency Detail(int line) {
    return Read_Currency(Sql("SELECT Col_1 FROM F1 WHERE LineNum = ", line, " ;"));
}

Currency Sum_Detail(const char* lines) {
    return Read_Currency(Sql("SELECT SUM(Col_1) AS Sum1 FROM F1 WHERE LineNum BETWEEN ", lines, ";"));
}

void Store_Total(int line, Currency amount) {
    db.Execute(Sql("UPDATE F1 SET Col_2=", amount, " WHERE LineNum=", line, ";"));
}

}  // namespace

void Build_F1() {
    Build_Table("F1", kColumns, "LineNum,Description,Col_1,Col_2", kLinesF1, "ndx");
}

void Calc_F1() {
    const Currency revenues = Detail(1) - Detail(2);
    Store_Total(3, revenues);
    const Currency expenses = Read_Currency("SELECT Col_6 FROM A WHERE LineNum = 29 ;");
    db.Execute(Sql("UPDATE F1 SET Col_1=", expenses, " WHERE LineNum=4;"));
    const Currency operating = Sum_Detail("4 AND 10.99") - Sum_Detail("11 AND 16.99");
    Store_Total(17, operating);
    const Currency service = revenues - operating;
    Store_Total(18, service);
    const Currency other = Sum_Detail("19 AND 31.99");
    Store_Total(32, other);
    Store_Total(33, service + other);
}

}  // namespace tallmar
