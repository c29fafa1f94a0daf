// Amounts in dollars, and the line numbers of the form: decimals with four places, held exactly.
// A Currency is a whole number of ten-thousandths; 5.01 and 23.2 compare as integers do.
#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tallmar {

class Currency {
  public:
    static constexpr std::int64_t kScale = 10'000;

    constexpr Currency() = default;
    constexpr explicit Currency(int whole) : scaled_(std::int64_t{whole} * kScale) {}

    static constexpr Currency From_Scaled(std::int64_t scaled) {
        Currency result;
        result.scaled_ = scaled;
        return result;
    }
    // The amount nearest to `value`: its shortest decimal text, rounded to four places, halves to even.
    // Nothing where `value` is no number or does not fit (about +-922 trillion dollars).
    static std::optional<Currency> From_Double(double value);
    // "12", "-5.01", ".5": exact up to four places, more places rounded to even. Nothing where it is no number.
    static std::optional<Currency> From_Text(std::string_view text);

    constexpr std::int64_t Scaled() const { return scaled_; }
    // Correctly rounded: 0.1 gives the double 0.1.
    constexpr double To_Double() const { return static_cast<double>(scaled_) / static_cast<double>(kScale); }
    // Plain decimal without needless zeros: "5", "5.01", "-0.5".
    std::string To_Text() const;

    constexpr bool Is_Whole() const { return scaled_ % kScale == 0; }
    // Floor, as Int() of the dialect: Int(-0.5) is -1.
    constexpr Currency Int() const {
        const std::int64_t rest = scaled_ % kScale;
        return From_Scaled(scaled_ - rest - (rest < 0 ? kScale : 0));
    }

    friend constexpr auto operator<=>(Currency, Currency) = default;
    friend constexpr Currency operator-(Currency a) { return From_Scaled(-a.scaled_); }
    // Throw std::overflow_error where the sum does not fit.
    friend Currency operator+(Currency a, Currency b);
    friend Currency operator-(Currency a, Currency b);
    // Rounded to four places, halves to even; throws std::overflow_error.
    friend Currency operator*(Currency a, Currency b);
    Currency& operator+=(Currency other) { return *this = *this + other; }
    Currency& operator-=(Currency other) { return *this = *this - other; }

  private:
    std::int64_t scaled_ = 0;
};

// 13.2_cur: a line number or an amount written in the program, four places at most.
consteval Currency operator""_cur(const char* text) {
    std::int64_t scaled = 0;
    int places = -1;
    for (; *text != '\0'; ++text) {
        if (*text == '.') {
            places = 0;
        } else if (*text != '\'') {
            scaled = scaled * 10 + (*text - '0');
            if (places >= 0 && ++places > 4) throw std::invalid_argument("more than four places");
        }
    }
    for (int i = places < 0 ? 0 : places; i < 4; ++i) scaled *= 10;
    return Currency::From_Scaled(scaled);
}

}  // namespace tallmar
