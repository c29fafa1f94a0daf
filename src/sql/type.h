// The static types of expressions.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tallmar::sql {

// Whole is the type of Byte, Integer and Long fields, Double of Single fields too. Decimal is a literal with a point,
// and what an IIF or a sign makes of such: exact beside a Currency, a Double everywhere else. Condition is SQLite's 1,
// 0 or Null; as a value it becomes a Boolean, -1 or 0.
enum class Type : std::uint8_t { None, Boolean, Whole, Currency, Decimal, Double, Date, Text, Condition };
inline constexpr std::size_t kTypeCount = 9;
inline constexpr std::size_t kOperandTypes = 8;  // all but Condition

}  // namespace tallmar::sql
