#include "sql/keywords.h"

#include <algorithm>

#include "sql/lexer.h"

namespace tallmar::sql {

bool Is_Reserved(std::string_view word) {
    return std::any_of(std::begin(kReservedWords), std::end(kReservedWords),
                       [&](std::string_view reserved) { return Is_Keyword(word, reserved); });
}

const FieldTypeRow* Find_Field_Type(std::string_view word) {
    const auto names = [&](std::string_view keyword) { return !keyword.empty() && Is_Keyword(word, keyword); };
    const auto* found = std::ranges::find_if(kFieldTypes, [&](const FieldTypeRow& row) {
        return names(Word_Of(row)) || std::ranges::any_of(row.otherWords, names);
    });
    return found == kFieldTypes.end() ? nullptr : found;
}

}  // namespace tallmar::sql
