// frmEditF, frmEditF1, frmEditF2: the agency's financial statements as keyed, in whole dollars. The totals are
// computed.
#include <array>

#include "common/sql_text.h"
#include "report/open_report.h"
#include "screens/entry_cells.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr int kTextLength = 36;

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, kTextLength},
    FormColumn{"Col_1", "1", "General Fund", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "Specific Purpose Fund", CellKind::Number, 0, kAmount},
    FormColumn{"Col_3", "3", "Endowment Fund", CellKind::Number, 0, kAmount},
    FormColumn{"Col_4", "4", "Plant Fund", CellKind::Number, 0, kAmount},
};
constexpr std::array kColumns1{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, kTextLength},
    FormColumn{"Col_1", "1", "Amount", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "Total", CellKind::Shown, 0, kAmount},
};
constexpr std::array kColumns2{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, kTextLength},
    FormColumn{"Col_1", "1", "General Fund", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "General Fund Total", CellKind::Number, 0, kAmount},
    FormColumn{"Col_3", "3", "Specific Purpose Fund", CellKind::Number, 0, kAmount},
    FormColumn{"Col_4", "4", "Specific Purpose Fund Total", CellKind::Number, 0, kAmount},
    FormColumn{"Col_5", "5", "Endowment Fund", CellKind::Number, 0, kAmount},
    FormColumn{"Col_6", "6", "Endowment Fund Total", CellKind::Number, 0, kAmount},
    FormColumn{"Col_7", "7", "Plant Fund", CellKind::Number, 0, kAmount},
    FormColumn{"Col_8", "8", "Plant Fund Total", CellKind::Number, 0, kAmount},
};

constexpr std::string_view kFunds = "Col_1 Col_2 Col_3 Col_4";

// A fund balance is in the column of its fund only. The lines of other assets and liabilities are specified in
// their description.
constexpr std::array kEntries{
    EntryCells{{1_cur, 10_cur}, kFunds},  EntryCells{{12_cur, 26_cur}, kFunds},  EntryCells{{28_cur, 31_cur}, kFunds},
    EntryCells{{34_cur, 41_cur}, kFunds}, EntryCells{{43_cur, 48_cur}, kFunds},  EntryCells{51_cur, "Col_1"},
    EntryCells{52_cur, "Col_2"},          EntryCells{{53_cur, 55_cur}, "Col_3"}, EntryCells{{56_cur, 57_cur}, "Col_4"},
    EntryCells{9_cur, "Description"},     EntryCells{31_cur, "Description"},     EntryCells{41_cur, "Description"},
    EntryCells{48_cur, "Description"},
};

// Allowances and depreciation are keyed without a sign and taken off, as the totals of lines 33 and 59 do.
constexpr std::array kTakenOff{6_cur, 14_cur, 16_cur, 18_cur, 20_cur, 22_cur, 24_cur};
constexpr std::array kFoot{
    FootSum{"Total Assets", {1_cur, 31_cur}, kTakenOff},
    FootSum{"Total Liabilities & Fund Balances", {34_cur, 57_cur}},
};

// Line 4 comes from Worksheet A. Lines without the form's wording, and sublines, are the user's.
constexpr std::array kEntries1{
    EntryCells{{1_cur, 2_cur}, "Col_1"},
    EntryCells{{5_cur, 16.99_cur}, "Col_1"},
    EntryCells{{19_cur, 31.99_cur}, "Col_1"},
};
constexpr std::array kOwnLines1{
    UserLines{{6_cur, 10.99_cur}, 0.01_cur},
    UserLines{{12_cur, 16.99_cur}, 0.01_cur},
    UserLines{{29_cur, 31.99_cur}, 0.01_cur},
};
constexpr std::array kDetailLines1{
    UserLines{{5_cur, 16.99_cur}, 0.01_cur},
    UserLines{{19_cur, 31.99_cur}, 0.01_cur},
};
constexpr NewRow kNoAmount{"Col_1", "0"};

// Detail is in the odd columns, the balance of the beginning in the even ones.
constexpr std::string_view kDetail = "Col_1 Col_3 Col_5 Col_7";
constexpr std::string_view kUserDetail = "Description Col_1 Col_3 Col_5 Col_7";
constexpr std::array kEntries2{
    EntryCells{1_cur, "Col_2 Col_4 Col_6 Col_8"}, EntryCells{{4_cur, 4.99_cur}, kDetail},
    EntryCells{{5_cur, 8.99_cur}, kUserDetail},   EntryCells{{11_cur, 11.99_cur}, kDetail},
    EntryCells{{12_cur, 15.99_cur}, kUserDetail},
};
constexpr std::array kOwnLines2{
    UserLines{{5_cur, 8.99_cur}, 1_cur},
    UserLines{{12_cur, 15.99_cur}, 1_cur},
};
constexpr NewRow kNoDetail{"Col_1, Col_3, Col_5, Col_7", "0, 0, 0, 0"};

bool Has_Line(std::span<const UserLines> groups, Currency line) {
    return Find_Row(groups, line) != nullptr;
}

std::string_view Locked_1(const CellPlace& place) {
    const Currency line = place.row.Line();
    if (place.column.field != "Description") return Locked_Elsewhere<kEntries1>(place);
    const bool isUsers = Has_Line(kOwnLines1, line) || (!line.Is_Whole() && Has_Line(kDetailLines1, line));
    return isUsers ? std::string_view() : why::kWording;
}

std::string_view Not_Shown_1(Currency line) {
    return line == 4_cur ? "it comes from Worksheet A" : why::kComputed;
}

UserLines Sublines_Of(Currency line) {
    return {{line.Int() + 0.01_cur, line.Int() + 0.99_cur}, 0.01_cur};
}

std::optional<Currency> Next_Line_1(const Item& item, Currency line) {
    if (line.Is_Whole() || !Has_Line(kDetailLines1, line)) return std::nullopt;
    return Next_User_Line(item, Sublines_Of(line), line);
}

// A subline of the line that the cursor is in; elsewhere of the last user's line.
Currency Add_1(const Item& item, Currency current) {
    const Currency of = Has_Line(kDetailLines1, current) ? current : kDetailLines1.back().lines.to;
    return Add_User_Line(item, Sublines_Of(of), current, kNoAmount);
}

void Remove_1(const Item& item, Currency line) {
    if (!line.Is_Whole() && Has_Line(kDetailLines1, line)) Delete_Line(item, line);
}

// The whole lines first, what goes beyond in hundredths behind the last.
UserLines Lines_To_Add_2(const Item& item, Currency current) {
    const UserLines& group = kOwnLines2[current < 10_cur ? 0 : 1];
    const Currency first = group.lines.from, last = group.lines.to.Int();
    const Row full =
        db.Read_Row(Sql("SELECT Count(LineNum) AS Cnt FROM ", item.Name(), " WHERE LineNum = Int(LineNum) ",
                        "AND LineNum BETWEEN ", first, " AND ", last, ";"));
    const bool isFull = full["Cnt"].To_Currency() >= last - first + 1_cur;
    return isFull ? UserLines{{last + 0.01_cur, group.lines.to}, 0.01_cur} : UserLines{{first, last}, group.step};
}
std::optional<Currency> Next_Line_2(const Item& item, Currency line) {
    if (!Has_Line(kOwnLines2, line)) return std::nullopt;
    return Next_User_Line(item, Lines_To_Add_2(item, line), line);
}
Currency Add_2(const Item& item, Currency current) {
    return Add_User_Line(item, Lines_To_Add_2(item, current), current, kNoDetail);
}

void Remove_2(const Item& item, Currency line) {
    if (Has_Line(kOwnLines2, line)) Delete_Line(item, line);
}

}  // namespace

constinit const FormDescription kEditF{.name = "frmEditF",
                                       .where = "LineNum Not In(11, 27, 32, 33, 42, 49, 50, 58, 59)",
                                       .columns = {kColumns},
                                       .cells = {.locked = Locked_Elsewhere<kEntries>},
                                       .window = {.foot = kFoot}};
constinit const FormDescription kEditF1{
    .name = "frmEditF1",
    .where = "LineNum Not In(3, 4, 17, 18, 32, 33)",
    .columns = {kColumns1},
    .cells = {.locked = Locked_1},
    .lines = {.notShown = Not_Shown_1, .next = Next_Line_1, .newRow = kNoAmount, .add = Add_1, .remove = Remove_1}};
constinit const FormDescription kEditF2{
    .name = "frmEditF2",
    .where = "LineNum Not In(2, 3, 9, 10, 16, 17)",
    .columns = {kColumns2},
    .cells = {.locked = Locked_Elsewhere<kEntries2>},
    .lines = {.next = Next_Line_2, .newRow = kNoDetail, .add = Add_2, .remove = Remove_2}};

constinit const FormDescription kViewF{.name = "frmViewF", .readOnly = true, .columns = {kColumns}};
constinit const FormDescription kViewF1{.name = "frmViewF1", .readOnly = true, .columns = {kColumns1}};
constinit const FormDescription kViewF2{.name = "frmViewF2", .readOnly = true, .columns = {kColumns2}};

}  // namespace tallmar
