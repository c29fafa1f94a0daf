#include "common/worksheets.h"

#include <algorithm>
#include <array>

#include "common/text.h"

namespace tallmar {

namespace {

std::span<const WorksheetFamily> installed;

// Fiscal years that start on or after `from` and before `end`.
struct YearSpan {
    Years years;
    Date from, end;
};
// Outside of the calendar.
constexpr Date kEver{-657'435};
constexpr Date kNever{2'958'466};
constexpr std::array kYearSpans{
    YearSpan{Years::Always, kEver, kNever},
    YearSpan{Years::CostLimits, kEver, kCostLimitsEnd},
    YearSpan{Years::FromS21, kS21From, kNever},
};

const YearSpan& Span_Of(Years years) {
    return *std::ranges::find(kYearSpans, years, &YearSpan::years);
}

}  // namespace

bool Year_Has(Years years, Date start) {
    return start >= Span_Of(years).from && !Have_Ended(years, start);
}

bool Have_Ended(Years years, Date start) {
    return start >= Span_Of(years).end;
}

void Install_Catalogue(std::span<const WorksheetFamily> families) {
    installed = families;
}

std::span<const WorksheetFamily> Families() {
    return installed;
}

std::string_view Stem_Of(const ItemPattern& items) {
    const std::string_view text = items.Text();
    return text.substr(0, text.find_first_of("*?#"));
}

const WorksheetFamily* Find_Family(const Item& item) {
    for (const WorksheetFamily& family : installed) {
        if (family.items.Matches(item.Name())) return &family;
    }
    return nullptr;
}

const WorksheetFamily* Find_Family_In_Any_Case(std::string_view item) {
    const std::string name = To_Upper(item);
    for (const WorksheetFamily& family : installed) {
        const std::string pattern = To_Upper(family.items.Text());
        if (ItemPattern(pattern.c_str()).Matches(name)) return &family;
    }
    return nullptr;
}

}  // namespace tallmar
