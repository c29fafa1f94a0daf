// frmEditA5: adjustments to expenses. The therapy lines and the total are not on the form; line 5 comes from A-6.
#include <array>

#include "calc/w_a5.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "screens/cell_check.h"
#include "screens/entry_cells.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Name, 90},
    FormColumn{"Col_1", "1", "Basis/Code", CellKind::Own},
    FormColumn{"Col_2", "2", "Amount", CellKind::Own, 0, kAmount},
    FormColumn{"Col_3", "3", "Cost Center", CellKind::Shown, 0, "", why::kNamedByNumber},
    FormColumn{"Col_4", "4", "CC #", CellKind::Own},
};

constexpr BoxText kInvalidBasis{
    "Error: Invalid Non-Alphanumeric Entry",
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "an 'A' or a 'B'.  Your entry or modification is being discarded.  Select OK to continue."};

constexpr Currency kRelatedLine = 5_cur;
constexpr std::string_view kFromRelated = "it comes from Worksheet A-6";
constexpr std::string_view kFromTherapies = "it comes from Worksheet A-8-3";

bool Is_User_Line(Currency line) {
    return line >= 13_cur && line < 21_cur;
}

constexpr std::array kUserLines{UserLines{{13_cur, 20.99_cur}, 0.01_cur}};

// A line before all others has none that it could be added behind.
std::optional<Currency> Next_Line(const Item& item, Currency line) {
    const Currency before =
        Read_Currency(Sql("Select Max(LineNum) as HighLN From A5 Where LineNum>=13 And LineNum < ", line, ";"));
    return Next_In_Group<kUserLines>(item, before == Currency() && Is_User_Line(line) ? kUserLines[0].lines.to : line);
}

// The wording of lines 1 to 12 is the form's.
std::string_view Locked(const CellPlace& place) {
    if (place.column.field == "Description") return Is_User_Line(place.row.Line()) ? std::string_view() : why::kWording;
    return place.row.Line() == kRelatedLine ? kFromRelated : std::string_view();
}

// The therapy lines and the total.
std::string_view Not_Shown(Currency line) {
    return line.Int() == 10_cur ? kFromTherapies : why::kComputed;
}

CellResult Check(const CellPlace& place, std::string_view text) {
    if (place.column.field == "Col_2") return Validate_Number(place.talk, text, 0);
    if (place.column.field == "Col_4") return Validate_Cost_Center(text, "Col_3");
    const std::string basis = To_Upper(Trim(text));
    if (basis != "A" && basis != "B") return Refuse(kInvalidBasis, {.text = text});
    return Accept(basis);
}

std::vector<CellChoice> Choices(const CellPlace& place) {
    return place.column.field == "Col_4" ? Cost_Center_Choices() : std::vector<CellChoice>();
}

Currency Add(const Item&, Currency current) {
    return Add_A5_Row(current);
}
void Remove(const Item&, Currency line) {
    Delete_A5_Row(line);
}

}  // namespace

constinit const FormDescription kEditA5{
    .name = "frmEditA5",
    .where = "Int(LineNum) Not In(10, 21)",
    .columns = {kColumns},
    .cells = {.locked = Locked, .check = Check, .choices = Choices},
    .lines = {.notShown = Not_Shown, .next = Next_Line, .add = Add, .remove = Remove}};

constinit const FormDescription kViewA5{.name = "frmViewA5", .readOnly = true, .columns = {kColumns}};

}  // namespace tallmar
