#include "calc/w_f.h"

#include <array>

#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"}, Column{"Description", FieldType::Text, 64}, Column{"Col_1"}, Column{"Col_2"}, Column{"Col_3"},
    Column{"Col_4"},
};

constexpr const char* kAmounts = "0,0,0,0";
constexpr const char* kTotal = "Null,Null,Null,Null";
// A fund balance is in the column of its fund only.
constexpr const char* kGeneralFund = "0,Null,Null,Null";
constexpr const char* kSpecificFund = "Null,0,Null,Null";
constexpr const char* kEndowmentFund = "Null,Null,0,Null";
constexpr const char* kPlantFund = "Null,Null,Null,0";

}  // namespace

constexpr std::array<FixedRow, 59> kLinesF{{
    {1_cur, "Cash on hand and in banks", kAmounts},
    {2_cur, "Temporary investments", kAmounts},
    {3_cur, "Notes receivable", kAmounts},
    {4_cur, "Accounts receivable", kAmounts},
    {5_cur, "Other receivables", kAmounts},
    {6_cur, "Less: allowances for uncollectibal notes and accounts receivable", kAmounts},
    {7_cur, "Inventory", kAmounts},
    {8_cur, "Prepaid expenses", kAmounts},
    {9_cur, "Other current assets", kAmounts},
    {10_cur, "Due from other funds", kAmounts},
    {11_cur, "TOTAL CURRENT ASSETS", kTotal, LineKind::Total},
    {12_cur, "Land", kAmounts},
    {13_cur, "Land improvements", kAmounts},
    {14_cur, "Less: Accumulated depreciation", kAmounts},
    {15_cur, "Buildings", kAmounts},
    {16_cur, "Less: Accumulated depreciation", kAmounts},
    {17_cur, "Leasehold improvements", kAmounts},
    {18_cur, "Less: Accumulated depreciation", kAmounts},
    {19_cur, "Fixed equipment", kAmounts},
    {20_cur, "Less: Accumulated depreciation", kAmounts},
    {21_cur, "Automobiles and trucks", kAmounts},
    {22_cur, "Less: Accumulated depreciation", kAmounts},
    {23_cur, "Major movable equipment", kAmounts},
    {24_cur, "Less: Accumulated depreciation", kAmounts},
    {25_cur, "Minor equipment nondepreciable", kAmounts},
    {26_cur, "Other fixed assets", kAmounts},
    {27_cur, "TOTAL FIXED ASSETS", kTotal, LineKind::Total},
    {28_cur, "Investments", kAmounts},
    {29_cur, "Deposits on leases", kAmounts},
    {30_cur, "Due from owners/officers", kAmounts},
    {31_cur, "Other assets", kAmounts},
    {32_cur, "TOTAL OTHER ASSETS", kTotal, LineKind::Total},
    {33_cur, "TOTAL ASSETS", kTotal, LineKind::Total},
    {34_cur, "Accounts payable", kAmounts},
    {35_cur, "Salaries, wages & fees payable", kAmounts},
    {36_cur, "Payroll taxes payable", kAmounts},
    {37_cur, "Notes & loans payable (short term)", kAmounts},
    {38_cur, "Deferred income", kAmounts},
    {39_cur, "Accelerated payments", kAmounts},
    {40_cur, "Due to other funds", kAmounts},
    {41_cur, "Other current liabilities", kAmounts},
    {42_cur, "TOTAL CURRENT LIABILITIES", kTotal, LineKind::Total},
    {43_cur, "Mortgage payable", kAmounts},
    {44_cur, "Notes payable", kAmounts},
    {45_cur, "Unsecured loans", kAmounts},
    {46_cur, "Loans from owners - Prior to 7/1/66", kAmounts},
    {47_cur, "Loans from owners - On or after 7/1/66", kAmounts},
    {48_cur, "Other long term liabilities", kAmounts},
    {49_cur, "TOTAL LONG TERM LIABILITIES", kTotal, LineKind::Total},
    {50_cur, "TOTAL LIABILITIES", kTotal, LineKind::Total},
    {51_cur, "General fund balance", kGeneralFund},
    {52_cur, "Specific purpose fund", kSpecificFund},
    {53_cur, "Donor created - endowment fund balance - restricted", kEndowmentFund},
    {54_cur, "Donor created - endowment fund balance - unrestricted", kEndowmentFund},
    {55_cur, "Governing body created - endowment fund balance", kEndowmentFund},
    {56_cur, "Plant fund balance - invested in plant", kPlantFund},
    {57_cur, "Plant fund balance - reserve for plant improvement, replacement and expansion", kPlantFund},
    {58_cur, "TOTAL FUND BALANCES", kTotal, LineKind::Total},
    {59_cur, "TOTAL LIABILITIES & FUND BALANCES", kTotal, LineKind::Total},
}};

namespace {

using Funds = std::array<Currency, 4>;

// How a total line comes about: the sum of the lines that meet `plus` less the sum of those that meet `minus`.
struct TotalLine {
    int line;
    const char* plus;
    const char* minus;  // null: nothing to take off
};

// In the order of the worksheet; a total may rest on totals before it.
constexpr std::array<TotalLine, 7> kAssetsAndLiabilities{{
    {11, "(LineNum BETWEEN 1 AND 10) AND (LineNum <> 6)", "LineNum = 6"},
    {27, "LineNum IN(12,13,15,17,19,21,23,25,26)", "LineNum IN(14,16,18,20,22,24)"},
    {32, "LineNum BETWEEN 28 AND 31", nullptr},
    {33, "LineNum IN(11,27,32)", nullptr},
    {42, "LineNum BETWEEN 34 AND 41", nullptr},
    {49, "LineNum BETWEEN 43 AND 48", nullptr},
    {50, "LineNum IN(42,49)", nullptr},
}};
constexpr std::array<TotalLine, 2> kBalances{{
    {58, "LineNum BETWEEN 51 AND 57", nullptr},
    {59, "LineNum IN(50,58)", nullptr},
}};

Funds Sum_Funds(const char* where) {
    const Row row = db.Read_Row(
        Sql("SELECT SUM(Col_1) AS Sum1,SUM(Col_2) AS Sum2,SUM(Col_3) AS Sum3,SUM(Col_4) AS Sum4 FROM F WHERE ", where,
            ";"));
    return {Nz_Currency(row[0]), Nz_Currency(row[1]), Nz_Currency(row[2]), Nz_Currency(row[3])};
}

void Store_Total(const TotalLine& total) {
    Funds amounts = Sum_Funds(total.plus);
    if (total.minus != nullptr) {
        const Funds less = Sum_Funds(total.minus);
        for (std::size_t i = 0; i < amounts.size(); ++i) amounts[i] -= less[i];
    }
    db.Execute(Sql("UPDATE F SET Col_1=", amounts[0], ", Col_2=", amounts[1], ", Col_3=", amounts[2],
                   ", Col_4=", amounts[3], " WHERE LineNum=", total.line, ";"));
}

}  // namespace

void Build_F() {
    Build_Table("F", kColumns, "LineNum,Description,Col_1,Col_2,Col_3,Col_4", kLinesF, "ndx");
}

void Calc_F() {
    for (const TotalLine& total : kAssetsAndLiabilities) Store_Total(total);
    const Row balances = db.Read_Row("Select * From F2 Where LineNum=17;");
    db.Execute(Sql("UPDATE F SET Col_1=", Nz_Currency(balances["Col_2"]), " WHERE LineNum=51;"));
    for (const TotalLine& total : kBalances) Store_Total(total);
}

}  // namespace tallmar
