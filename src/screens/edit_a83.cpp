// frmEditA83p1x, frmEditA83p4x, frmEditA83p5x: what outside therapy suppliers did and charged. Parts 2 and 3 are
// computed and only viewed.
#include <array>

#include "calc/worksheet.h"
#include "screens/cell_check.h"
#include "screens/entry_cells.h"
#include "screens/formats.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::array kColumns1{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Supervisors", CellKind::Own, 2, kCents},
    FormColumn{"Col_2", "2", "Therapists", CellKind::Own, 2, kCents},
    FormColumn{"Col_3", "3", "Assistants", CellKind::Own, 2, kCents},
    FormColumn{"Col_4", "4", "Aides", CellKind::Own, 2, kCents},
};
constexpr std::array kColumns2{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Amount", CellKind::Shown, 0, kCents},
};
constexpr std::array kColumns3{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Amount", CellKind::Shown, 0, kAmount},
};
constexpr std::array kColumns4{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Therapists", CellKind::Number, 2, kCents},
    FormColumn{"Col_2", "2", "Assistants", CellKind::Number, 2, kCents},
    FormColumn{"Col_3", "3", "Aides", CellKind::Number, 2, kCents},
    FormColumn{"Col_4", "4", "Total", CellKind::Number, 2, kCents},
};
constexpr std::array kColumns5{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Amount", CellKind::Number, 0, kAmount},
};

// Line 2 and line 9 are computed.
constexpr std::array kEntries1{
    EntryCells{1_cur, "Col_1"},
    EntryCells{{3_cur, 6_cur}, "Col_1"},
    EntryCells{{7_cur, 8_cur}, "Col_1 Col_2 Col_3 Col_4"},
    EntryCells{{10_cur, 11_cur}, "Col_1 Col_2 Col_3"},
};
// The cells of this part are empty before they are keyed.
constexpr std::array kEntries4{
    EntryCells{32_cur, "Col_1 Col_2 Col_3"},
    EntryCells{36_cur, "Col_4"},
};
constexpr std::array kEntries5{
    EntryCells{{45_cur, 46_cur}, "Col_1"},
    EntryCells{48_cur, "Col_1"},
};

// The worksheet ends on 10/1/2000.
template <const auto& kCells>
std::string_view Locked(const CellPlace& place) {
    return Is_Cost_Limit_Period() ? Locked_Elsewhere<kCells>(place) : why::kLimitYears;
}

// Weeks and visits are whole; rates, hours and miles have two decimals.
CellResult Check_1(const CellPlace& place, std::string_view text) {
    const bool isCount = place.row.Line() < 5_cur;
    return Validate_Numeric(place.talk, text, isCount ? 0 : place.column.limit, kInvalidNonNumeric);
}

// Each total of part 3 with the lines that it is the sum of. Part 5 takes the first total that is not 0.
constexpr std::array kLineSets{
    LineSet{"Button29", 29_cur, {23_cur, 24_cur}},
    LineSet{"Button30", 30_cur, {24_cur, 27_cur}},
    LineSet{"Button31", 31_cur, {27_cur, 28_cur}},
};

}  // namespace

constinit const FormDescription kEditA83p1{.name = "frmEditA83p1x",
                                           .where = "LineNum Not In(2, 9)",
                                           .columns = {kColumns1},
                                           .cells = {.locked = Locked<kEntries1>, .check = Check_1}};
constinit const FormDescription kEditA83p4{.name = "frmEditA83p4x",
                                           .where = "LineNum In(32, 36)",
                                           .columns = {kColumns4},
                                           .cells = {.locked = Locked<kEntries4>}};
constinit const FormDescription kEditA83p5{.name = "frmEditA83p5x",
                                           .where = "LineNum In(45, 46, 48)",
                                           .columns = {kColumns5},
                                           .cells = {.locked = Locked<kEntries5>}};

constinit const FormDescription kViewA83p1{.name = "frmViewA83p1x", .readOnly = true, .columns = {kColumns1}};
constinit const FormDescription kViewA83p2{.name = "frmViewA83p2x", .readOnly = true, .columns = {kColumns2}};
constinit const FormDescription kViewA83p3{
    .name = "frmViewA83p3x", .readOnly = true, .columns = {kColumns3}, .window = {.lineSets = kLineSets}};
constinit const FormDescription kViewA83p4{.name = "frmViewA83p4x", .readOnly = true, .columns = {kColumns4}};
constinit const FormDescription kViewA83p5{.name = "frmViewA83p5x", .readOnly = true, .columns = {kColumns5}};

}  // namespace tallmar
