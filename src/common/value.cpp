#include "common/value.h"

#include <cmath>
#include <stdexcept>

#include "common/dates.h"
#include "common/numbers.h"

namespace tallmar {

namespace {

[[noreturn]] void Mismatch() {
    throw std::invalid_argument("Type mismatch");
}
[[noreturn]] void Overflow() {
    throw std::overflow_error("Overflow");
}

}  // namespace

bool Value::Is_Numeric() const {
    if (const auto* text = std::get_if<std::string>(&storage_)) return Parse_Number(*text).has_value();
    return !Is_Null();
}

double Value::To_Double() const {
    struct {
        double operator()(NullValue) const { Mismatch(); }
        double operator()(bool v) const { return v ? -1 : 0; }
        double operator()(std::int32_t v) const { return v; }
        double operator()(Currency v) const { return v.To_Double(); }
        double operator()(double v) const { return v; }
        double operator()(Date v) const { return v.serial; }
        double operator()(const std::string& v) const {
            if (const auto number = Parse_Number(v)) return *number;
            Mismatch();
        }
    } visitor;
    return std::visit(visitor, storage_);
}

Currency Value::To_Currency() const {
    if (const auto* amount = std::get_if<Currency>(&storage_)) return *amount;
    if (const auto* number = std::get_if<std::int32_t>(&storage_)) return Currency(*number);
    // A text keeps the digits that a Double would lose.
    if (const auto* text = std::get_if<std::string>(&storage_)) {
        if (const auto amount = Currency::From_Text(*text)) return *amount;
    }
    if (const auto amount = Currency::From_Double(To_Double())) return *amount;
    Overflow();
}

std::int32_t Value::To_Long() const {
    if (const auto* number = std::get_if<std::int32_t>(&storage_)) return *number;
    const double rounded = std::nearbyint(To_Double());
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max())) {
        Overflow();
    }
    return static_cast<std::int32_t>(rounded);
}

Date Value::To_Date() const {
    if (const auto* date = std::get_if<Date>(&storage_)) return *date;
    if (const auto* text = std::get_if<std::string>(&storage_)) {
        if (const auto date = Parse_Date(*text)) return *date;
        Mismatch();
    }
    const double serial = To_Double();
    if (!Is_In_Calendar(serial)) Overflow();
    return Date{serial};
}

std::string Value::To_Text() const {
    struct {
        std::string operator()(NullValue) const { return ""; }
        std::string operator()(bool v) const { return v ? "-1" : "0"; }
        std::string operator()(std::int32_t v) const { return std::to_string(v); }
        std::string operator()(Currency v) const { return v.To_Text(); }
        std::string operator()(double v) const { return Number_Text(v); }
        std::string operator()(Date v) const { return General_Date(v); }
        std::string operator()(const std::string& v) const { return v; }
    } visitor;
    return std::visit(visitor, storage_);
}

}  // namespace tallmar
