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

double Val(std::string_view text) {
    std::string digits;
    bool point = false;
    bool exponent = false;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r') continue;
        const bool sign = c == '-' || c == '+';
        if (sign && !digits.empty() && !(exponent && (digits.back() == 'e'))) break;
        if (c == '.') {
            if (point || exponent) break;
            point = true;
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && !exponent && !digits.empty()) {
            exponent = true;
            digits += 'e';
            continue;
        } else if (!sign && (c < '0' || c > '9')) {
            break;
        }
        digits += c;
    }
    if (!digits.empty() && digits.front() == '+') digits.erase(0, 1);
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
