// What the tests of the forms share: a report, and cells entered into it as a person types them.
#pragma once

#include <string>
#include <string_view>

#include "screens/cell_batch.h"
#include "support/report_fixture.h"

namespace tallmar {

// Of a refusal; empty where the cell was stored.
inline std::string Title_Of(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->title : std::string();
}
inline std::string Text_Of(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->text : std::string();
}

inline std::optional<Refusal> Enter(std::string_view item, std::string_view line, std::string_view column,
                                    std::string_view value) {
    return Enter_Cell({std::string(item), std::string(line), std::string(column), std::string(value)});
}

// "title: text" of a refusal, "stored" otherwise.
inline std::string Answer_To(std::string_view item, std::string_view line, std::string_view column,
                             std::string_view value) {
    const std::optional<Refusal> refusal = Enter(item, line, column, value);
    return refusal ? refusal->title + ": " + refusal->text : "stored";
}

inline std::string Title_Of(std::string_view item, std::string_view line, std::string_view column,
                            std::string_view value) {
    return Title_Of(Enter(item, line, column, value));
}

constexpr const char* kStored = "stored";
constexpr const char* kShut = "Locked Cell";

}  // namespace tallmar
