#include "calc/w_s21.h"

#include <array>

#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/variant.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"LineLabel", FieldType::Memo},
    Column{"Col_1", FieldType::Text, 40},
    Column{"Col_2", FieldType::Text, 255},
    Column{"Col_3", FieldType::Text, 255},
};

constexpr const char* kOtherAdjustments =
    "If line 9 or 10 is yes, were adjustments made to the PS&R Report data for Other? If yes, describe.";

}  // namespace

constexpr std::array<FixedRow, 17> kLinesS21{{
    {1_cur,
     "Has the HHA changed ownership immediately prior to the beginning of the cost reporting period? If yes, enter the "
     "date in column 2.",
     ""},
    {2_cur,
     "Has the HHA terminated participation in the Medicare program? If yes, enter the date in column 2 and V or I for "
     "voluntary or involuntary.",
     ""},
    {3_cur,
     "Is the HHA involved in business transactions, including management contracts with individuals or entities (e.g., "
     "chain home officers, drug or medical supply companies) that are related to the provider or its officers, medical "
     "staff, management personnel, or members of the board through ownership, control, or relationships?",
     ""},
    {4_cur,
     "Were the financial statements prepared by a CPA? If yes, enter 'A' for Audited, 'C' for Compiled, or 'R' for "
     "Reviewed. Submit complete copy or enter date available in column 3",
     ""},
    {5_cur,
     "Are the cost report total expenses and total revenues different from those on the filed financial statements? If "
     "'Y', submit reconciliation.",
     ""},
    {6_cur, "Is the HHA or HHA-based enties seeking reimbursement for bad depts? If yes, see instructions.", ""},
    {7_cur,
     "If line 6 is yes, did the HHA's bad debt collection policy change during this cost reporting period? If yes, "
     "submit copy.",
     ""},
    {8_cur, "If line 6 is yes, were patient coinsurance amounts waived? If yes, see instructions.", ""},
    {9_cur,
     "Was the cost report prepared using the PS&R Report only? If yes, enter the paid-through date of the PS&R Report "
     "used.",
     ""},
    {10_cur,
     "Was the cost report prepared using the PS&R Report for totals and the HHA's records for allocation? If yes, "
     "enter "
     "the paid-through date in column 2.",
     ""},
    {11_cur,
     "If line 9 or 10 is yes, were adjustments made to the PS&R Report data for additional claims that have been "
     "billed "
     "but are not included on the PS&R Report used to file this cost report?",
     ""},
    {12_cur,
     "If line 9 or 10 is yes, were adjustments made to the PS&R Report data for corrections of other PS&R Report "
     "information? If yes, see instructions.",
     ""},
    {13_cur, kOtherAdjustments, ""},
    {14_cur, "Was the cost report prepared only using the HHA's records? If yes, see instructions.", ""},
    {15_cur, "First/Last Name/Title", ""},
    {16_cur, "Employer", ""},
    {17_cur, "Phone number/E-mail Address", ""},
}};

namespace {

bool Is_Yes_At(Recordset& answers, const char* line) {
    answers.FindFirst(line);
    return !answers.NoMatch() && Is_Yes(answers["Col_1"]);
}

}  // namespace

void Build_S21() {
    Build_Table("S21", kColumns, "LineNum,LineLabel", kLinesS21, "ndx");
}

void Calc_S21() {
    Recordset answers = db.OpenRecordset("Select * From S21 Order By LineNum;");
    if (!Is_Yes_At(answers, "LineNum=6")) db.Execute("Update S21 Set Col_1=Null Where LineNum In(7,8);");
    const bool usedPSR = Is_Yes_At(answers, "LineNum=9") || Is_Yes_At(answers, "LineNum=10");
    if (!usedPSR) db.Execute("Update S21 Set Col_1=Null Where LineNum In(11,12,13);");
    // The label carries the user's description while the answer is Yes.
    if (!Is_Yes_At(answers, "LineNum=13") || !usedPSR) {
        db.Execute(Sql("Update S21 Set LineLabel=", Quoted(kOtherAdjustments), " Where LineNum=13;"));
    }
    answers.Close();
}

}  // namespace tallmar
