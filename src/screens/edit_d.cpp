// frmEditDp1, frmEditDp2, frmEditD1: what settles the report, in whole dollars. D-1 grows by a line a lump sum.
#include <array>
#include <cmath>

#include "common/dates.h"
#include "common/sql_text.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/entry_cells.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr int kTextLength = 36;

constexpr std::array kColumns1{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "Part A", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "Part B Subject To Deductibles And Coinsurance", CellKind::Number, 0, kAmount},
    FormColumn{"Col_3", "3", "Part B Not Subject To Deductibles And Coinsurance", CellKind::Number, 0, kAmount},
};
constexpr std::array kColumns2{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, kTextLength},
    FormColumn{"Col_1", "1", "Part A Services", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "Part B Services", CellKind::Number, 0, kAmount},
};
constexpr std::array kPayments{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, kTextLength},
    FormColumn{"Col_1", "1", "Part A Date", CellKind::Own, 0, kDateFormat},
    FormColumn{"Col_2", "2", "Part A Amount", CellKind::Number, 0, kAmount},
    FormColumn{"Col_3", "3", "Part B Date", CellKind::Own, 0, kDateFormat},
    FormColumn{"Col_4", "4", "Part B Amount", CellKind::Number, 0, kAmount},
};

// The drug charges of line 4.01 come from C Part III in columns 2 and 3.
constexpr std::array kEntries1{
    EntryCells{2_cur, "Col_3"},
    EntryCells{4_cur, "Col_1 Col_2 Col_3"},
    EntryCells{4.01_cur, "Col_1"},
    EntryCells{{5_cur, 6_cur}, "Col_1 Col_2 Col_3"},
    EntryCells{11_cur, "Col_1 Col_2 Col_3"},
};
constexpr std::array kSources1{
    SourcedCells{4.01_cur, "Col_2 Col_3", "it comes from Worksheet C Part III"},
};

// Episodes are paid from both parts, though column 2 begins empty. Line 25.5 is specified in its description.
constexpr std::array kEntries2{
    EntryCells{{12.01_cur, 12.14_cur}, "Col_1 Col_2"},
    EntryCells{13_cur, "Col_2"},
    EntryCells{17_cur, "Col_2"},
    EntryCells{19_cur, "Col_1 Col_2"},
    EntryCells{20_cur, "Col_2"},
    EntryCells{{22_cur, 24_cur}, "Col_1 Col_2"},
    EntryCells{{25.5_cur, 25.99_cur}, "Description Col_1 Col_2"},
    EntryCells{26_cur, "Col_1 Col_2"},
    EntryCells{30_cur, "Col_1 Col_2"},
};

// Program to provider, and provider to program. The first line of each is the form's own, with its wording.
constexpr std::array kLumpSums{
    UserLines{{3.01_cur, 3.49_cur}, 0.01_cur},
    UserLines{{3.5_cur, 3.98_cur}, 0.01_cur},
};
constexpr NewRow kNoPayment{"Col_2, Col_4", "0, 0"};

const UserLines* Group_Of(Currency line) {
    return Find_Row(kLumpSums, line);
}

// Lines 1 and 2 are sums over the period and have no date.
constexpr std::array kPaymentEntries{
    EntryCells{{1_cur, 2_cur}, "Col_2 Col_4"},
    EntryCells{{kLumpSums[0].lines.from, kLumpSums[1].lines.to}, "Col_1 Col_2 Col_3 Col_4"},
    EntryCells{{3.02_cur, kLumpSums[0].lines.to}, "Description"},
    EntryCells{{3.51_cur, kLumpSums[1].lines.to}, "Description"},
};

constexpr BoxText kInvalidDate{
    "Invalid Date Entry",
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "a date [mm/dd/yyyy].  Your entry or modification is being discarded.  Select OK to continue."};

CellResult Check_Date(const CellPlace&, std::string_view text) {
    if (Is_Blank_Text(text)) return Accept(Null);
    const std::optional<Date> date = Parse_Date(Trim(text));
    if (!date) return Refuse(kInvalidDate, {.text = text});
    return Accept(Date{std::floor(date->serial)});
}

// A further payment is described as the first of its group.
void Describe_Lump_Sum(const Item& item, Currency line) {
    const Row first =
        db.Read_Row(Sql("SELECT Description FROM ", item.Name(), " WHERE LineNum = ", Group_Of(line)->lines.from));
    db.Execute(
        Sql("UPDATE ", item.Name(), " SET Description = ", first["Description"], " WHERE LineNum = ", line, ";"));
}

Currency Add_Lump_Sum(const Item& item, Currency current) {
    const Currency line = Add_User_Line(item, kLumpSums[kLumpSums[1].lines.Has(current) ? 1 : 0], current, kNoPayment);
    Describe_Lump_Sum(item, line);
    return line;
}

void Remove_Lump_Sum(const Item& item, Currency line) {
    const UserLines* group = Group_Of(line);
    if (group != nullptr && line != group->lines.from) Delete_Line(item, line);
}

std::string_view Locked_1(const CellPlace& place) {
    const std::string_view why = Find_Source(kSources1, place.row.Line(), place.column.field);
    return why.empty() ? Locked_Elsewhere<kEntries1>(place) : why;
}

std::string_view Not_Shown_2(Currency line) {
    if (line == 15_cur) return "it comes from Worksheet D Part I";
    if (line == 28_cur) return "it comes from Worksheet D-1";
    return line == 28.5_cur ? why::kShaded : why::kComputed;
}

}  // namespace

constinit const FormDescription kEditDp1{.name = "frmEditDp1",
                                         .where = "LineNum Not In(1, 3, 7, 8, 9, 10)",
                                         .columns = {kColumns1},
                                         .cells = {.locked = Locked_1}};
constinit const FormDescription kEditDp2{.name = "frmEditDp2",
                                         .where = "LineNum Not In(12, 14, 15, 16, 18, 21, 25, 27, 28, 28.5, 29, 31)",
                                         .columns = {kColumns2},
                                         .cells = {.locked = Locked_Elsewhere<kEntries2>},
                                         .lines = {.notShown = Not_Shown_2}};
constinit const FormDescription kEditD1{.name = "frmEditD1",
                                        .where = "LineNum < 3.99",
                                        .columns = {kPayments},
                                        .cells = {.locked = Locked_Elsewhere<kPaymentEntries>, .check = Check_Date},
                                        .lines = {.next = Next_In_Group<kLumpSums>,
                                                  .newRow = kNoPayment,
                                                  .made = Describe_Lump_Sum,
                                                  .add = Add_Lump_Sum,
                                                  .remove = Remove_Lump_Sum}};

constinit const FormDescription kViewDp1{.name = "frmViewDp1", .readOnly = true, .columns = {kColumns1}};
constinit const FormDescription kViewDp2{.name = "frmViewDp2", .readOnly = true, .columns = {kColumns2}};
constinit const FormDescription kViewD1{.name = "frmViewD1", .readOnly = true, .columns = {kPayments}};

}  // namespace tallmar
