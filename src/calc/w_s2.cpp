#include "calc/w_s2.h"

#include <array>

#include "calc/worksheet.h"
#include "common/numbers.h"
#include "common/sql_text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"LineLabel", FieldType::Text, 250},
    Column{"Col_1", FieldType::Text, 40},
    Column{"Col_2", FieldType::Text, 16},
    Column{"Col_3", FieldType::Text, 16},
};

constexpr const char* kFields = "LineNum,LineLabel,Col_1";

// Special purpose lines of the chart, 24 to 28, are lines 3, 3.5, 4, 5 and 6. This runs before lines 24 and on of the
// worksheet's own are there.
constexpr std::array kFromChart{
    "INSERT INTO S2 (LineNum, LineLabel) SELECT LineNum, CCName FROM CostCenters "
    "WHERE Int(LineNum) IN (24, 25, 26, 27, 28);",
    R"(UPDATE S2 SET LineNum=[LineNum]-21, LineLabel="HHA-based " & [LineLabel] WHERE Int(LineNum) = 24;)",
    R"(UPDATE S2 SET LineNum=[LineNum]-21.5, LineLabel="HHA-based " & [LineLabel] WHERE Int(LineNum) = 25;)",
    R"(UPDATE S2 SET LineNum=[LineNum]-22, LineLabel="HHA-based " & [LineLabel] WHERE Int(LineNum) = 26;)",
    R"(UPDATE S2 SET LineNum=[LineNum]-22, LineLabel="HHA-based " & [LineLabel] WHERE Int(LineNum) = 27;)",
    R"(UPDATE S2 SET LineNum=[LineNum]-22, LineLabel="HHA-based " & [LineLabel] WHERE Int(LineNum) = 28;)",
    "INSERT INTO S2 (LineNum, LineLabel) SELECT [LineNum] - IIF(int([LineNum])=24, 0, 1) As Expr, CCName "
    "FROM CostCenters WHERE Int(LineNum) IN (24, 26);",
};

// The address is above the lines that come from the chart.
constexpr std::size_t kAddressLines = 2;

}  // namespace

constexpr std::array<FixedRow, 30> kLinesS2{{
    {1_cur, "Street / P.O. Box:", "Null"},
    {1.01_cur, "City / State / Zip:", "Null"},
    {8_cur, "Type of Control", "'4'"},
    {9_cur, "Is this a (L)ow or (N)o Medicare utilization cost report?", "Null"},
    {10_cur, "Straight Line", "Null"},
    {11_cur, "Declining Balance", "Null"},
    {12_cur, "Sum of the Years' Digits", "Null"},
    {13_cur, "Sum of lines 10, 11 and 12", "Null"},
    {14_cur, "Were there any disposals of capital assets during this cost reporting period?", "'No'"},
    {15_cur, "Was accelerated depreciation claimed on any assets in the current or any prior cost reporting period?",
     "'No'"},
    {16_cur,
     "Was accelerated depreciation claimed on assets acquired on or after August 1, 1970 (See PRM 15-1, Chapter 1)?",
     "'No'"},
    {17_cur, "If depreciation is funded, enter the balance at end of period.", "Null"},
    {18_cur,
     "Did you cease to participate in the Medicare program at the end of the period to which this cost report applies"
     "  (See PRM 15-1, Chapter 1)?",
     "'No'"},
    {19_cur,
     "Was there a substantial decrease in health insurance proportion of allowable cost from prior cost reporting "
     "periods  (See PRM 15-1, Chapter 1)?",
     "'No'"},
    {20_cur, "Does the provider qualify as a small HHA (defined in 43 CFR 413.24(d))?", "'No'"},
    {21_cur, "Does the home health agency qualify as a nominal charge provider (defined in 42 CFR 409.3)?", "'No'"},
    {22_cur, "Does the home health agency contract with outside suppliers for physical therapy services?", "'No'"},
    {22.01_cur, "Does the home health agency contract with outside suppliers for occupational therapy services?",
     "'No'"},
    {22.02_cur, "Does the home health agency contract with outside suppliers for speech therapy services?", "'No'"},
    {23_cur, "Home health agency", "Null"},
    {26_cur,
     "If the home health agency componentized (or fragmented) its administrative and general service costs, indicate "
     "whether option one(1) or option two(2) is being utilized. (See PRM-II, Section 3214)",
     "Null"},
    {27_cur, "List amount of malpractice premiums and paid losses:", "Null", LineKind::Heading},
    {27.01_cur, "Premiums", "Null"},
    {27.02_cur, "Paid Losses", "Null"},
    {27.03_cur, "Self Insurance", "Null"},
    {28_cur,
     "Are malpractice premiums and/or paid losses reported in other than the Administrative and General cost center? "
     "If yes, submit a supporting schedule listing cost centers and amounts contained therein.",
     "'No'"},
    {29_cur,
     "If you are part of a chain organization, enter \"Y\" for yes and enter the name and address of the home office, "
     "otherwise, enter \"N\" for no.",
     "'No'"},
    {29.01_cur, "Home Office Name/Number/FI/Contractor No.:,", "Null"},
    {29.02_cur, "Street:/P.O. Box", "Null"},
    {29.03_cur, "City:/State:/Zip Code:", "Null"},
}};

void Build_S2() {
    Create_Table("S2", kColumns);
    Insert_Rows("S2", kFields, std::span(kLinesS2).first(kAddressLines));
    db.Execute(Sql("INSERT INTO S2 (LineNum,LineLabel,Col_1,Col_2) VALUES (2,'Home Health Agency',",
                   Quoted(openReport.ProviderName), ",", Quoted(openReport.ProviderNumber), ");"));
    Execute_All(kFromChart);
    db.Execute(Sql("INSERT INTO S2 (LineNum,LineLabel,Col_1,Col_2) VALUES (7,'Cost Reporting Period (mm/dd/yyyy)',",
                   Date_Literal(openReport.FYStart), ",", Date_Literal(openReport.FYEnd), ");"));
    Insert_Rows("S2", kFields, std::span(kLinesS2).subspan(kAddressLines));
    Finish_Table("S2", "ndx");
}

void Calc_S2() {
    const double sum = Read_Number("SELECT SUM(INT(Col_1)) AS Sum1 FROM S2 WHERE LineNum>=10 And LineNum<13;");
    db.Execute(Sql("UPDATE S2 SET Col_1 = ", sum, " WHERE LineNum=13;"));
}

int Read_AGOption() {
    try {
        return static_cast<int>(Val(Nz_Str(db.Read_Row("SELECT Col_1 From S2 WHERE LineNum=26;")["Col_1"])));
    } catch (const DbError& error) {
        if (error.Ends_Work()) throw;
        return 0;
    }
}

void Load_AGOption() {
    openReport.AGOption = Read_AGOption();
}

}  // namespace tallmar
