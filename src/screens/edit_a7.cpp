// frmEditA7: changes in capital asset balances, in whole dollars.
#include <array>

#include "screens/formats.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    FormColumn{"LineNum", "", "Line #"},
    FormColumn{"Description", "", "Description"},
    FormColumn{"Col_1", "1", "Beginning Balances", CellKind::Number, 0, kAmount},
    FormColumn{"Col_2", "2", "Purchases", CellKind::Number, 0, kAmount},
    FormColumn{"Col_3", "3", "Donations", CellKind::Number, 0, kAmount},
    FormColumn{"Col_4", "4", "Total Acquisitions", CellKind::Shown, 0, kAmount},
    FormColumn{"Col_5", "5", "Disposals And Retirements", CellKind::Number, 0, kAmount},
    FormColumn{"Col_6", "6", "Ending Balances", CellKind::Shown, 0, kAmount},
};

}  // namespace

constinit const FormDescription kEditA7{.name = "frmEditA7", .where = "LineNum < 7", .columns = {kColumns}};
constinit const FormDescription kViewA7{.name = "frmViewA7", .readOnly = true, .columns = {kColumns}};

}  // namespace tallmar
