// The worksheets that some fiscal years have and others do not: and A-8-3 before 10/1/2000, S-2-1 from
// 10/1/2015 on. The catalogue says which they are.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace tallmar {

// True where a fiscal year that starts on `start` has the worksheet, in whatever case its table is named; of an item of
// no family, always.
bool Year_Has(std::string_view item, Date start);

// The worksheets that come and those that go as the start of the year moves: "A-1, A-2, A-3, A-8-3"; empty where none
// does.
struct YearMove {
    std::string added, removed;
    explicit operator bool() const { return !added.empty() || !removed.empty(); }
};
YearMove Move_Year(Date from, Date to);

}  // namespace tallmar
