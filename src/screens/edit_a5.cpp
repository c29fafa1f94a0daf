// frmEditA5: adjustments to expenses. The therapy lines and the total are not on the form; line 5 comes from A-6.
#include <array>

#include "calc/w_a5.h"
#include "screens/cell_check.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr std::string_view kAmount = "###,###,##0;(###,###,##0)";

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description", CellKind::Text, 90},
    FormColumn{"Col_1", "1", "Basis/Code", CellKind::Own},
    FormColumn{"Col_2", "2", "Amount", CellKind::Own, 0, kAmount},
    FormColumn{"Col_3", "3", "Cost Center"},
    FormColumn{"Col_4", "4", "CC #", CellKind::Own},
};

constexpr BoxText kInvalidBasis{
    "Error: Invalid Non-Alphanumeric Entry",
    "You're attempting to enter invalid data ['<text>'].  The cell you're attempting to input or modify only accepts "
    "an 'A' or a 'B'.  Your entry or modification is being discarded.  Select OK to continue."};

constexpr Currency kRelatedLine = 5_cur;

bool Is_User_Line(Currency line) {
    return line >= 13_cur && line < 21_cur;
}

bool Can_Make(Currency line) {
    return Is_User_Line(line) && (line * 100_cur).Is_Whole();
}

// The wording of lines 1 to 12 is the form's.
bool Locked(const CellPlace& place) {
    if (place.row.Line() == kRelatedLine) return true;
    return place.column.field == "Description" && !Is_User_Line(place.row.Line());
}

CellResult Check(const CellPlace& place, std::string_view text) {
    if (place.column.field == "Col_2") return Validate_Number(text, 0);
    if (place.column.field == "Col_4") return Validate_Cost_Center(text, "Col_3");
    const std::string basis = To_Upper(Trim(text));
    if (basis != "A" && basis != "B") return Refuse(kInvalidBasis, {.text = text});
    return Accept(basis);
}

Currency Add(const Item&, Currency current) {
    return Add_A5_Row(current);
}
void Remove(const Item&, Currency line) {
    Delete_A5_Row(line);
}

}  // namespace

constinit const FormDescription kEditA5{.name = "frmEditA5",
                                        .where = "Int(LineNum) Not In(10, 21)",
                                        .columns = kColumns,
                                        .locked = Locked,
                                        .check = Check,
                                        .canMake = Can_Make,
                                        .add = Add,
                                        .remove = Remove};

constinit const FormDescription kViewA5{.name = "frmViewA5", .columns = kColumns, .readOnly = true};

}  // namespace tallmar
