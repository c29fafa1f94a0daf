#include "common/numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tallmar {

std::string Number_Text(double value) {
    std::array<char, 400> buffer;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value == 0 ? 0.0 : value, std::chars_format::fixed);
    return {buffer.data(), end};
}

std::optional<double> Parse_Number(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return std::nullopt;
    }
    if (text.empty() || text.find_first_not_of("0123456789.+-eE") != std::string_view::npos) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

namespace {

// The longest start of a text that is a number, taken character by character.
struct NumberStart {
    std::string digits;
    bool point = false;
    bool exponent = false;

    // False where the number ends before `c`.
    bool Take(char c) {
        if (c == '-' || c == '+') {
            if (!digits.empty() && digits.back() != 'e') return false;
        } else if (c == '.') {
            if (point || exponent) return false;
            point = true;
        } else if (std::string_view("eEdD").find(c) != std::string_view::npos) {
            if (exponent || digits.empty()) return false;
            exponent = true;
            c = 'e';
        } else if (c < '0' || c > '9') {
            return false;
        }
        digits += c;
        return true;
    }
};

}  // namespace

double Val(std::string_view text) {
    NumberStart number;
    for (const char c : text) {
        const bool blank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
        if (!blank && !number.Take(c)) break;
    }
    std::string_view digits = number.digits;
    if (digits.starts_with('+')) digits.remove_prefix(1);
    double value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return std::isfinite(value) ? value : 0;
}

double Round_Half(double value, int digits) {
    const double scale = std::pow(10.0, digits);
    const double scaled = value * scale;
    const double whole = std::trunc(scaled);
    if (std::abs(std::abs(scaled - whole) - 0.5) < 0.000001) {
        const double sign = scaled > 0 ? 1.0 : scaled < 0 ? -1.0 : 0.0;
        return (whole + sign) * std::pow(10.0, -digits);
    }
    return std::floor(scaled + 0.5) / scale;
}

bool Is_Precise(double value, int digits) {
    return std::abs(value - Round_Half(value, digits)) * std::pow(10.0, digits) < 0.0001;
}

double Round_Even(double value, int digits) {
    const double scale = std::pow(10.0, digits);
    return std::nearbyint(value * scale) / scale;
}

}  // namespace tallmar
