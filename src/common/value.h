// One value of a cell, of a statement or of a function: Null or one of the types of the report file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "common/currency.h"
#include "common/date.h"

namespace tallmar {

// The types of a field. The numbers are stored in no file but the dialect's documents name them: never renumber.
enum class FieldType : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,  // 16 bit
    Long = 4,     // 32 bit
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Text = 10,
    Memo = 12,
    Char = 18,
};

struct NullValue {
    friend constexpr bool operator==(NullValue, NullValue) = default;
};
inline constexpr NullValue Null{};

class Value {
  public:
    using Storage = std::variant<NullValue, bool, std::int32_t, Currency, double, Date, std::string>;

    Value() = default;
    Value(NullValue) {}
    Value(bool v) : storage_(v) {}
    Value(std::int32_t v) : storage_(v) {}
    Value(Currency v) : storage_(v) {}
    Value(double v) : storage_(v) {}
    Value(Date v) : storage_(v) {}
    Value(std::string v) : storage_(std::move(v)) {}
    Value(std::string_view v) : storage_(std::string(v)) {}
    Value(const char* v) : storage_(std::string(v)) {}

    const Storage& Get() const { return storage_; }
    bool Is_Null() const { return std::holds_alternative<NullValue>(storage_); }
    template <class T>
    bool Is() const {
        return std::holds_alternative<T>(storage_);
    }
    // A number of any kind, a Boolean (-1 or 0), a date's serial, or a text that is numeric.
    bool Is_Numeric() const;
    // The conversions throw std::invalid_argument("Type mismatch") on Null and on a text that is not what is asked.
    // A number that does not fit throws std::overflow_error("Overflow"); To_Long rounds halves to even. A text is a
    // date only where it is written as one.
    double To_Double() const;
    Currency To_Currency() const;
    std::int32_t To_Long() const;
    Date To_Date() const;
    // As `&` joins it: Null is "", a number its shortest text, a Boolean "-1" or "0", a date as General_Date.
    std::string To_Text() const;

    // Same kind and same value; no conversion between kinds.
    friend bool operator==(const Value&, const Value&) = default;

  private:
    Storage storage_;
};

}  // namespace tallmar
