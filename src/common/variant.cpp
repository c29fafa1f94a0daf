#include "common/variant.h"

#include <algorithm>
#include <array>

#include "common/dates.h"
#include "common/numbers.h"
#include "common/text.h"

namespace tallmar {

Value Nz_Num(const Value& value, const Value& otherwise) {
    if (!value.Is_Numeric()) return otherwise;
    return value.Is<std::string>() ? Value(value.To_Double()) : value;
}

Currency Nz_Currency(const Value& value) {
    return value.Is_Numeric() ? value.To_Currency() : Currency{};
}

double Nz_Double(const Value& value) {
    return value.Is_Numeric() ? value.To_Double() : 0;
}

std::string Nz_Str(const Value& value, std::string_view otherwise) {
    return value.Is_Null() ? std::string(otherwise) : value.To_Text();
}

bool Is_Blank(const Value& value) {
    return value.Is_Null() || Trim(value.To_Text()).empty();
}

Date Safe_Date(const Value& value) {
    try {
        return value.To_Date();
    } catch (const std::exception&) {
        return Date_Of(100, 1, 1);
    }
}

bool Is_Yes(const Value& answer) {
    const std::string text = answer.To_Text();
    return !text.empty() && (text[0] == 'Y' || text[0] == 'y');
}

Value Round_Half(const Value& value, int digits) {
    if (!value.Is_Numeric()) return Null;
    return Round_Half(value.To_Double(), digits);
}

namespace {

// <0, 0, >0. Two texts compare as texts; a text that is no number comes after every number.
int Compare_Variants(const Value& a, const Value& b) {
    const bool leftIsText = a.Is<std::string>();
    const bool rightIsText = b.Is<std::string>();
    if ((leftIsText && rightIsText) || !a.Is_Numeric() || !b.Is_Numeric()) {
        if (leftIsText != rightIsText) return leftIsText ? 1 : -1;
        return Compare_Text(a.To_Text(), b.To_Text());
    }
    if (a.Is<Currency>() && b.Is<Currency>()) {
        const auto order = a.To_Currency() <=> b.To_Currency();
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }
    const double x = a.To_Double();
    const double y = b.To_Double();
    return x < y ? -1 : x > y ? 1 : 0;
}

// `sign` is 1 for the greater, -1 for the lesser.
const Value& Preferred(const Value& a, const Value& b, int sign) {
    if (b.Is_Null()) return a;
    if (a.Is_Null()) return b;
    return Compare_Variants(b, a) * sign > 0 ? b : a;
}

}  // namespace

Value Max_Var(const Value& a, const Value& b) {
    return Preferred(a, b, 1);
}
Value Min_Var(const Value& a, const Value& b) {
    return Preferred(a, b, -1);
}

std::string Digits_Only(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), [](char c) { return c >= '0' && c <= '9'; });
    return digits;
}

bool All_Zeros(std::string_view text) {
    return !text.empty() && text.find_first_not_of('0') == std::string_view::npos;
}

std::string To_Roman(int n) {
    struct Numeral {
        int value;
        std::string_view text;
    };
    constexpr std::array<Numeral, 13> kNumerals = {{{1000, "M"},
                                                    {900, "CM"},
                                                    {500, "D"},
                                                    {400, "CD"},
                                                    {100, "C"},
                                                    {90, "XC"},
                                                    {50, "L"},
                                                    {40, "XL"},
                                                    {10, "X"},
                                                    {9, "IX"},
                                                    {5, "V"},
                                                    {4, "IV"},
                                                    {1, "I"}}};
    std::string roman;
    if (n < 1 || n > 3999) return roman;
    for (const Numeral& numeral : kNumerals) {
        for (; n >= numeral.value; n -= numeral.value) roman += numeral.text;
    }
    return roman;
}

}  // namespace tallmar
