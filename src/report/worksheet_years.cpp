#include "report/worksheet_years.h"

#include "common/worksheets.h"

namespace tallmar {

namespace {

// The number of the form, without a part: "A-8-3" of A83p1.
std::string Form_Number(std::string_view item) {
    std::string number(item.substr(0, 1));
    for (const char c : item.substr(1)) {
        if (c < '0' || c > '9') break;
        number += '-';
        number += c;
    }
    return number;
}

// The parts of a form come and go together, and stand behind one another.
void Add_Number(std::string& list, const std::string& number) {
    if (list.ends_with(number)) return;
    if (!list.empty()) list += ", ";
    list += number;
}

}  // namespace

bool Year_Has(std::string_view item, Date start) {
    const WorksheetFamily* family = Find_Family_In_Any_Case(item);
    return family == nullptr || Year_Has(family->years, start);
}

YearMove Move_Year(Date from, Date to) {
    YearMove move;
    for (const WorksheetFamily& family : Families()) {
        const bool has = Year_Has(family.years, to);
        if (!family.inNewReport || has == Year_Has(family.years, from)) continue;
        Add_Number(has ? move.added : move.removed, Form_Number(Stem_Of(family.items)));
    }
    return move;
}

}  // namespace tallmar
