// A value as SQLite holds it: Currency is the amount x 10 000, a Date its serial, a Boolean -1 or 0.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>

#include "common/value.h"

namespace tallmar {

using StoredValue = std::variant<NullValue, std::int64_t, double, std::string>;

inline StoredValue To_Stored(const Value& value) {
    return std::visit(
        [](const auto& v) -> StoredValue {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, bool>) {
                return std::int64_t{v ? -1 : 0};
            } else if constexpr (std::is_same_v<T, std::int32_t>) {
                return std::int64_t{v};
            } else if constexpr (std::is_same_v<T, Currency>) {
                return v.Scaled();
            } else if constexpr (std::is_same_v<T, Date>) {
                return v.serial;
            } else {
                return v;
            }
        },
        value.Get());
}

}  // namespace tallmar
