#include "common/currency.h"

#include <cmath>

#include "common/numbers.h"

namespace tallmar {

namespace {

__extension__ typedef __int128 Wide;

Currency Checked(Wide scaled) {
    if (scaled > std::numeric_limits<std::int64_t>::max() || scaled < std::numeric_limits<std::int64_t>::min()) {
        throw std::overflow_error("Overflow");
    }
    return Currency::From_Scaled(static_cast<std::int64_t>(scaled));
}

// Quotient of value / divisor to the nearest whole, halves to even. divisor > 0.
Wide Divide_Half_Even(Wide value, Wide divisor) {
    Wide quotient = value / divisor;
    Wide rest = value % divisor;
    if (rest < 0) rest = -rest;
    const bool up = rest * 2 > divisor || (rest * 2 == divisor && quotient % 2 != 0);
    if (up) quotient += value < 0 ? -1 : 1;
    return quotient;
}

}  // namespace

Currency operator+(Currency a, Currency b) {
    return Checked(Wide{a.scaled_} + b.scaled_);
}
Currency operator-(Currency a, Currency b) {
    return Checked(Wide{a.scaled_} - b.scaled_);
}
Currency operator*(Currency a, Currency b) {
    return Checked(Divide_Half_Even(Wide{a.scaled_} * b.scaled_, Currency::kScale));
}

std::optional<Currency> Currency::From_Text(std::string_view text) {
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    Wide scaled = 0;
    int places = -1;
    int fifth = 0;        // first dropped digit
    bool beyond = false;  // any digit after it but zero
    bool any = false;
    for (const char c : text) {
        if (c == '.' && places < 0) {
            places = 0;
        } else if (c >= '0' && c <= '9') {
            any = true;
            const int digit = c - '0';
            if (places >= 4) {
                if (places == 4)
                    fifth = digit;
                else
                    beyond = beyond || digit != 0;
                ++places;
                continue;
            }
            scaled = scaled * 10 + digit;
            if (scaled > Wide{std::numeric_limits<std::int64_t>::max()} * 2) return std::nullopt;
            if (places >= 0) ++places;
        } else {
            return std::nullopt;
        }
    }
    if (!any) return std::nullopt;
    for (int i = places < 0 ? 0 : places; i < 4; ++i) scaled *= 10;
    if (fifth > 5 || (fifth == 5 && (beyond || scaled % 2 != 0))) ++scaled;
    if (negative) scaled = -scaled;
    if (scaled > std::numeric_limits<std::int64_t>::max() || scaled < std::numeric_limits<std::int64_t>::min()) {
        return std::nullopt;
    }
    return From_Scaled(static_cast<std::int64_t>(scaled));
}

std::optional<Currency> Currency::From_Double(double value) {
    if (!std::isfinite(value) || std::abs(value) > 9.3e14) return std::nullopt;
    // A whole number of dollars needs no text.
    if (std::abs(value) < 9e14 && value == std::trunc(value)) {
        return From_Scaled(static_cast<std::int64_t>(value) * kScale);
    }
    return From_Text(Number_Text(value));
}

std::string Currency::To_Text() const {
    const bool negative = scaled_ < 0;
    const auto magnitude = negative ? 0 - static_cast<std::uint64_t>(scaled_) : static_cast<std::uint64_t>(scaled_);
    std::string text = std::to_string(magnitude / kScale);
    if (auto rest = static_cast<int>(magnitude % kScale); rest != 0) {
        std::string digits = std::to_string(rest + kScale).substr(1);
        while (digits.back() == '0') digits.pop_back();
        text += '.';
        text += digits;
    }
    return negative ? "-" + text : text;
}

}  // namespace tallmar
