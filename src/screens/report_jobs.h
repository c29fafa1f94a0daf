// Jobs on the whole report, as a person starts them.
#pragma once

namespace tallmar {

// Calc_All under the hourglass. False after the box that says why nothing was calculated.
bool Calculate_Report();

}  // namespace tallmar
