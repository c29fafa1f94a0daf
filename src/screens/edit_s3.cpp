// frmEditS3p1 to frmEditS3p4: visits, staff, MSA and CBSA codes, payment statistics; and the view of S Part II.
#include <algorithm>
#include <array>

#include "calc/sync_cp2.h"
#include "calc/w_c.h"
#include "calc/worksheet.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "report/code_lists.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/cell_check.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::string_view kHours = "###,##0.00";
constexpr int kNameLength = 36;

constexpr std::array kVisits{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, kNameLength},
    FormColumn{"Col_1", "1", "Title XVIII Visits", CellKind::Own, 0, kCount},
    FormColumn{"Col_2", "2", "Title XVIII Patients", CellKind::Own, 0, kCount},
    FormColumn{"Col_3", "3", "Other Visits", CellKind::Own, 0, kCount},
    FormColumn{"Col_4", "4", "Other Patients", CellKind::Own, 0, kCount},
    FormColumn{"Col_5", "5", "Total Visits", CellKind::Own, 0, kCount},
    FormColumn{"Col_6", "6", "Total Patients", CellKind::Own, 0, kCount},
};
constexpr std::array kStaff{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, kNameLength},
    FormColumn{"Col_1", "1", "Staff", CellKind::Number, 2, kHours},
    FormColumn{"Col_2", "2", "Contract", CellKind::Number, 2, kHours},
    FormColumn{"Col_3", "3", "Total", CellKind::Shown, 0, kHours},
};
constexpr std::array kCodes{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "MSA Code", CellKind::Own, 4},
    FormColumn{"Col_2", "2", "CBSA Code", CellKind::Own, 5},
};
constexpr std::array kPayment{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "Full Episodes Without Outliers", CellKind::Number, 0, kCount},
    FormColumn{"Col_2", "2", "Full Episodes With Outliers", CellKind::Number, 0, kCount},
    FormColumn{"Col_3", "3", "LUPA Episodes", CellKind::Number, 0, kCount},
    FormColumn{"Col_4", "4", "PEP Only Episodes", CellKind::Number, 0, kCount},
    FormColumn{"Col_5", "5", "SCIC Within A PEP", CellKind::Number, 0, kCount},
    FormColumn{"Col_6", "6", "SCIC Only Episodes", CellKind::Number, 0, kCount},
    FormColumn{"Col_7", "7", "Total", CellKind::Shown, 0, kCount},
};
constexpr std::array kSettlement{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "Part A", CellKind::Shown, 0, kCount},
    FormColumn{"Col_2", "2", "Part B", CellKind::Shown, 0, kCount},
};

// The county is the description of line 0.
constexpr TextAbove kCounty{"tbCounty", "Label1", "Co&unty:", 0_cur, "Description"};

constexpr Currency kFirstCode = 29_cur;

// Line 0 holds the county alone; line 8 is the total. From 10/1/2000 the calculation clears the parts of the census.
std::string_view Locked_Visits(const CellPlace& place) {
    const Currency line = place.row.Line();
    if (place.column.field == "Description") return line == 0_cur ? std::string_view() : why::kWording;
    if (line == 8_cur) return why::kComputed;
    return line > 10_cur && !Is_Cost_Limit_Period() ? why::kLimitYears : std::string_view();
}

// The census counts may have parts.
CellResult Check_Visits(const CellPlace& place, std::string_view text) {
    const int places = place.row.Line().Int() == 10_cur ? 2 : 0;
    return Validate_Numeric(place.talk, text, places, kInvalidNonNumeric);
}

// Lines 26 and 27 are the agency's own staff.
std::string_view Locked_Staff(const CellPlace& place) {
    const Currency line = place.row.Line();
    const bool isUsers = place.column.field != "Description" || line == 26_cur || line == 27_cur;
    return isUsers ? std::string_view() : why::kWording;
}

// The two kinds of codes. Each has a worksheet of C Part II.
struct CodeKind {
    std::string_view field;
    std::string_view characters;
    std::string (*code)(const Value&);
    std::string (*worksheet)(std::string_view code);
};
constexpr std::array kCodeKinds{
    CodeKind{"Col_1", "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", MSA_Code, Cp2_Item_Of_MSA},
    CodeKind{"Col_2", "0123456789", CBSA_Code, Cp2_Item_Of_CBSA},
};
const CodeKind& Kind_Of(std::string_view field) {
    return *std::ranges::find(kCodeKinds, field, &CodeKind::field);
}

constexpr BoxText kListed{"Duplicate Code", "The code <text> is already listed."};
constexpr BoxText kRemoveCode{
    "Remove Code", "The visits and limits of code <text> on C Part II will be removed.  Do you wish to continue?"};
constexpr int kRemoveButtons = kYesNo + kQuestion + kDefaultButton2;

// Another line lists the code.
bool Is_Listed(const CodeKind& kind, const std::string& code, Currency but) {
    const auto rows = db.Read_Rows(
        Sql("SELECT ", kind.field, " FROM S3p3 WHERE Int(LineNum) = ", kFirstCode, " AND LineNum <> ", but, ";"));
    return std::ranges::any_of(rows, [&](const Row& row) { return kind.code(row[kind.field]) == code; });
}

// What a person keys on C Part II.
bool Has_Typed_Figures(const std::string& worksheet) {
    constexpr std::string_view kTypedVisits = "Col_5<>0 Or Col_6<>0 Or Col_7<>0 Or Col_10<>0";
    constexpr std::string_view kTypedLimits = "Col_4<>0 Or Col_7<>0 Or Col_10<>0";
    if (!TableExists(worksheet, true)) return false;
    return static_cast<bool>(db.Read_Row(Sql("SELECT LineNum FROM ", worksheet, " WHERE LineNum < 7 And (",
                                             kTypedVisits, ") Or LineNum BETWEEN 8 And 13 And (", kTypedLimits, ");")));
}

// Whether the code of a line, as the table holds it, may go from the list with its C Part II. Where it leaves nothing
// typed behind nothing is asked.
Answer Ask_To_Remove(const EntryTalk& talk, const CodeKind& kind, const Value& typed, Currency line) {
    const std::string code = kind.code(typed);
    if (code.empty() || Is_Listed(kind, code, line) || !Has_Typed_Figures(kind.worksheet(code))) return Answer::Yes;
    return talk.Ask(Fill_Box(kRemoveCode, {.text = code}), kRemoveButtons);
}

// Codes are kept as typed: what is short is padded where the code is used.
CellResult Check_Code(const CellPlace& place, std::string_view text) {
    const CodeKind& kind = Kind_Of(place.column.field);
    const std::string_view typed = Trim(text);
    if (typed.find_first_not_of(kind.characters) != std::string_view::npos) {
        return Refuse(kInvalidNonNumeric, {.text = text});
    }
    CellResult result = typed.empty() ? Accept(Null) : Validate_Text(typed, place.column.limit);
    if (result.refusal) return result;
    const std::string code = kind.code(result.value);
    if (!code.empty() && Is_Listed(kind, code, place.row.Line())) return Refuse(kListed, {.text = code});

    // Asked once, when the code that the table holds is given up.
    const Value& stored = place.row.Stored(place.column.field);
    const std::string before = kind.code(stored);
    if (code == before || kind.code(place.row[place.column.field]) != before) return result;
    switch (Ask_To_Remove(place.talk, kind, stored, place.row.Line())) {
        case Answer::Yes:
            return result;
        case Answer::None:
            return Refuse(kEnterAlone);
        default:
            result = Refuse(kRemoveCode, {.text = before});
            result.refusal->shown = true;
            return result;
    }
}

// Former codes are restored: the present ones go.
bool May_Undo_Codes(const RowPlace& place) {
    const RowUnderEdit& row = place.row;
    return std::ranges::all_of(kCodeKinds, [&](const CodeKind& kind) {
        const Value& stored = row.Stored(kind.field);
        return kind.code(row[kind.field]) == kind.code(stored) ||
               Ask_To_Remove(place.talk, kind, stored, row.Line()) == Answer::Yes;
    });
}

bool May_Remove_Codes(const Item& item, Currency line, const EntryTalk& talk) {
    const Row row = db.Read_Row(Sql("SELECT * FROM ", item.Name(), " WHERE LineNum = ", line, ";"));
    return !row || line < kFirstCode || std::ranges::all_of(kCodeKinds, [&](const CodeKind& kind) {
        return Ask_To_Remove(talk, kind, row[kind.field], line) == Answer::Yes;
    });
}

constexpr std::array kFollowers{SideTable{"Cp2*"}, SideTable{"Cp4"}};

// The codes are line 29 and its sublines.
Currency Next_Code() {
    const Currency last = Read_Currency("SELECT Max(LineNum) AS HighLN FROM S3p3 WHERE LineNum >= 29;");
    return last < kFirstCode ? kFirstCode : last + 0.01_cur;
}
std::optional<Currency> Next_Code_Line(const Item&, Currency line) {
    if (line.Int() != kFirstCode) return std::nullopt;
    return Next_Code();
}
Currency Add_Code(const Item&, Currency) {
    const Currency line = Next_Code();
    db.Execute(Sql("INSERT INTO S3p3 (LineNum) VALUES (", line, ");"));
    return line;
}
void Remove_Code(const Item&, Currency line) {
    if (line < kFirstCode) return;
    db.Execute(Sql("DELETE FROM S3p3 WHERE LineNum = ", line, ";"));
    Sync_Cp2();
}

}  // namespace

constinit const FormDescription kEditS3p1{
    .name = "frmEditS3p1",
    .columns = {kVisits},
    .cells = {.nullIsShaded = true, .locked = Locked_Visits, .check = Check_Visits},
    .window = {.above = &kCounty}};
constinit const FormDescription kEditS3p2{
    .name = "frmEditS3p2", .columns = {kStaff}, .cells = {.nullIsShaded = true, .locked = Locked_Staff}};
constinit const FormDescription kEditS3p3{
    .name = "frmEditS3p3",
    .where = "LineNum >= 29",
    .columns = {kCodes},
    .cells = {.check = Check_Code},
    .rows = {.follow = Sync_Cp2, .sides = kFollowers, .mayUndo = May_Undo_Codes},
    .lines = {.next = Next_Code_Line, .add = Add_Code, .remove = Remove_Code, .mayRemove = May_Remove_Codes}};
constinit const FormDescription kEditS3p4{
    .name = "frmEditS3p4", .where = "LineNum Not In(42, 44)", .columns = {kPayment}, .cells = {.nullIsShaded = true}};

constinit const FormDescription kViewS3p1{
    .name = "frmViewS3p1", .readOnly = true, .columns = {kVisits}, .window = {.above = &kCounty}};
constinit const FormDescription kViewS3p2{.name = "frmViewS3p2", .readOnly = true, .columns = {kStaff}};
constinit const FormDescription kViewS3p3{.name = "frmViewS3p3", .readOnly = true, .columns = {kCodes}};
constinit const FormDescription kViewS3p4{.name = "frmViewS3p4", .readOnly = true, .columns = {kPayment}};
constinit const FormDescription kViewSp2{.name = "frmViewSp2", .readOnly = true, .columns = {kSettlement}};

}  // namespace tallmar
