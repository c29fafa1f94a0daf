// Forms over tables that are no worksheets: frmViewCCs, the chart of cost centers, and frmHeaderLines, the custom lines
// of the page head.
#include <array>

#include "common/text.h"
#include "report/master.h"
#include "screens/cell_check.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr std::array kColumnsCCs{
    FormColumn{"LineNum", "", "Line #"},          FormColumn{"CCNum", "", "CC #"},
    FormColumn{"CCName", "", "Cost Center Name"}, FormColumn{"CCGroup", "", "CC Group", CellKind::Shown, 0, "000#"},
    FormColumn{"CCType", "", "CC Type"},          FormColumn{"LineType", "", "Line Type"},
    FormColumn{"MaxLines", "", "Max Lines"},      FormColumn{"ColLabel1", "1", "Column Label"},
    FormColumn{"ColLabel2", "2", "Column Label"}, FormColumn{"ColLabel3", "3", "Column Label"},
    FormColumn{"StatLabel1", "1", "Stat Label"},  FormColumn{"StatLabel2", "2", "Stat Label"},
    FormColumn{"StatCode", "", "Stat Code"},
};

constexpr int kHeaderLength = 60;
constexpr BoxText kHeaderTooLong{"Invalid Length Entry", "The maximum length of a custom header line is 60 characters"};

constexpr std::array kColumnsHeaderLines{
    FormColumn{"LineText", "", "Custom Header Line", CellKind::Own, kHeaderLength},
};

// As typed: blanks in front place the line. A blank line is not printed.
CellResult Check_Header(const CellPlace&, std::string_view text) {
    if (Length(text) > kHeaderLength) return Refuse(kHeaderTooLong);
    if (Is_Blank_Text(text)) return Accept(Null);
    return Accept(text);
}

void Header_Stored(const RowPlace&) {
    Load_HeaderLines();
}

}  // namespace

constinit const FormDescription kViewCCs{
    .name = "frmViewCCs", .table = "CostCenters", .readOnly = true, .columns = {kColumnsCCs}};
constinit const FormDescription kHeaderLines{.name = "frmHeaderLines",
                                             .columns = {kColumnsHeaderLines},
                                             .cells = {.check = Check_Header},
                                             .rows = {.stored = Header_Stored}};

}  // namespace tallmar
