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

namespace {

// The digits of a decimal, taken one after another: four places and what decides the rounding to them.
struct Decimal {
    Wide scaled = 0;      // the digits up to the fourth place
    int places = -1;      // read so far; -1 before the point
    int fifth = 0;        // the first dropped digit
    bool beyond = false;  // any digit after it but zero
    bool any = false;

    // False for a character that no decimal has there, and for more digits than any amount has.
    bool Take(char c) {
        if (c == '.' && places < 0) {
            places = 0;
            return true;
        }
        if (c < '0' || c > '9') return false;
        any = true;
        Take_Digit(c - '0');
        return scaled <= Wide{std::numeric_limits<std::int64_t>::max()} * 2;
    }

    // x 10 000, halves to even.
    Wide Rounded() const {
        Wide rounded = scaled;
        for (int i = std::max(places, 0); i < 4; ++i) rounded *= 10;
        const bool up = fifth > 5 || (fifth == 5 && (beyond || rounded % 2 != 0));
        return up ? rounded + 1 : rounded;
    }

  private:
    void Take_Digit(int digit) {
        if (places < 4) {
            scaled = scaled * 10 + digit;
        } else if (places == 4) {
            fifth = digit;
        } else {
            beyond = beyond || digit != 0;
        }
        if (places >= 0) ++places;
    }
};

}  // namespace

std::optional<Currency> Currency::From_Text(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    Decimal decimal;
    for (const char c : text) {
        if (!decimal.Take(c)) return std::nullopt;
    }
    if (!decimal.any) return std::nullopt;
    const Wide scaled = negative ? -decimal.Rounded() : decimal.Rounded();
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
