// A date as the report keeps it.
#pragma once

#include <compare>

namespace tallmar {

// Days from 12/30/1899, the time of day as the fraction.
struct Date {
    double serial = 0;
    friend constexpr auto operator<=>(Date, Date) = default;
};
// From 1/1/100 to the end of 12/31/9999. The time of a day before 12/30/1899 counts away from zero.
constexpr bool Is_In_Calendar(double serial) {
    return serial > -657'435 && serial < 2'958'466;
}

}  // namespace tallmar
