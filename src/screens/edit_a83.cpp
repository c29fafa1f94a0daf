// frmEditA83p1x, frmEditA83p4x, frmEditA83p5x: what outside therapy suppliers did and charged. Parts 2 and 3 are
// computed and only viewed.
#include <array>

#include "calc/worksheet.h"
#include "screens/cell_check.h"
#include "screens/entry_cells.h"
#include "screens/forms.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr std::string_view kFigure = "###,###,##0.00;(###,###,##0.00)";
constexpr std::string_view kAmount = "###,###,##0;(###,###,##0)";

constexpr std::array kColumns1{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Supervisors", CellKind::Own, 2, kFigure},
    FormColumn{"Col_2", "2", "Therapists", CellKind::Own, 2, kFigure},
    FormColumn{"Col_3", "3", "Assistants", CellKind::Own, 2, kFigure},
    FormColumn{"Col_4", "4", "Aides", CellKind::Own, 2, kFigure},
};
constexpr std::array kColumns2{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Amount", CellKind::Shown, 0, kFigure},
};
constexpr std::array kColumns3{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Amount", CellKind::Shown, 0, kAmount},
};
constexpr std::array kColumns4{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"LineLabel", "", "Description"},
    FormColumn{"Col_1", "1", "Therapists", CellKind::Number, 2, kFigure},
    FormColumn{"Col_2", "2", "Assistants", CellKind::Number, 2, kFigure},
    FormColumn{"Col_3", "3", "Aides", CellKind::Number, 2, kFigure},
    FormColumn{"Col_4", "4", "Total", CellKind::Number, 2, kFigure},
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
    return Validate_Numeric(text, isCount ? 0 : place.column.limit, kInvalidNonNumeric);
}

}  // namespace

constinit const FormDescription kEditA83p1{.name = "frmEditA83p1x",
                                           .where = "LineNum Not In(2, 9)",
                                           .columns = kColumns1,
                                           .locked = Locked<kEntries1>,
                                           .check = Check_1};
constinit const FormDescription kEditA83p4{
    .name = "frmEditA83p4x", .where = "LineNum In(32, 36)", .columns = kColumns4, .locked = Locked<kEntries4>};
constinit const FormDescription kEditA83p5{
    .name = "frmEditA83p5x", .where = "LineNum In(45, 46, 48)", .columns = kColumns5, .locked = Locked<kEntries5>};

constinit const FormDescription kViewA83p1{.name = "frmViewA83p1x", .columns = kColumns1, .readOnly = true};
constinit const FormDescription kViewA83p2{.name = "frmViewA83p2x", .columns = kColumns2, .readOnly = true};
constinit const FormDescription kViewA83p3{.name = "frmViewA83p3x", .columns = kColumns3, .readOnly = true};
constinit const FormDescription kViewA83p4{.name = "frmViewA83p4x", .columns = kColumns4, .readOnly = true};
constinit const FormDescription kViewA83p5{.name = "frmViewA83p5x", .columns = kColumns5, .readOnly = true};

}  // namespace tallmar
