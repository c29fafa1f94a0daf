#include "screens/amount_text.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "common/numbers.h"

namespace tallmar {

namespace {

constexpr std::array<std::string_view, 6> kBlanks{" ", "\t", "\r", "\n", "\u00A0", "\u202F"};
constexpr std::array<std::string_view, 3> kMinuses{"-", "\u2212", "\u2013"};
constexpr std::string_view kSigns = "$+()";
constexpr std::string_view kDigits = "0123456789.,";

// Takes one of the signs off the front of the text.
bool Take(std::string_view& text, std::span<const std::string_view> signs) {
    const auto found = std::ranges::find_if(signs, [&](std::string_view sign) { return text.starts_with(sign); });
    if (found == signs.end()) return false;
    text.remove_prefix(found->size());
    return true;
}

// "1,234,567" has its separators in groups of three; "1,23" is no amount but a slip, or another country's decimals.
bool Groups_Are_Sound(std::string_view whole) {
    const std::size_t first = whole.find(',');
    if (first == std::string_view::npos) return true;
    if (first == 0 || first > 3) return false;
    for (std::size_t at = first; at < whole.size(); at += 4) {
        if (whole[at] != ',' || at + 4 > whole.size()) return false;
        if (whole.substr(at + 1, 3).find(',') != std::string_view::npos) return false;
    }
    return true;
}

std::optional<double> Parse_Digits(std::string_view text) {
    const std::string_view whole = text.substr(0, text.find('.'));
    if (!Groups_Are_Sound(whole)) return std::nullopt;
    std::string digits(whole);
    std::erase(digits, ',');
    digits += text.substr(whole.size());
    return Parse_Number(digits);
}

// What is around the digits, blanks passed over and every minus as '-'.
struct Signs {
    std::string before, behind;

    auto Count(char sign) const { return std::ranges::count(before, sign) + std::ranges::count(behind, sign); }
    bool Is_Negative() const { return Count('-') + Count('(') > 0; }
    bool Are_Sound() const {
        return Count('$') <= 1 && Count('(') == Count(')') && Count('-') + Count('+') + Count('(') <= 1 &&
               before.find(')') == std::string::npos && behind.find_first_of("(+") == std::string::npos;
    }
};

}  // namespace

std::optional<double> Parse_Amount(std::string_view text) {
    Signs signs;
    std::string_view digits;
    while (!text.empty()) {
        if (Take(text, kBlanks)) continue;
        std::string& side = digits.empty() ? signs.before : signs.behind;
        if (Take(text, kMinuses)) {
            side += '-';
        } else if (kSigns.find(text.front()) != std::string_view::npos) {
            side += text.front();
            text.remove_prefix(1);
        } else if (digits.empty() && kDigits.find(text.front()) != std::string_view::npos) {
            digits = text.substr(0, text.find_first_not_of(kDigits));
            text.remove_prefix(digits.size());
        } else {
            return std::nullopt;
        }
    }
    if (!signs.Are_Sound()) return std::nullopt;
    if (digits.empty()) return signs.Is_Negative() ? std::optional(0.0) : std::nullopt;
    const std::optional<double> amount = Parse_Digits(digits);
    return amount && signs.Is_Negative() && *amount != 0 ? std::optional(-*amount) : amount;
}

bool Is_Blank_Text(std::string_view text) {
    while (Take(text, kBlanks)) {
    }
    return text.empty();
}

}  // namespace tallmar
