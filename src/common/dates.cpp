#include "common/dates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "common/text.h"

namespace tallmar {

namespace {

constexpr std::array<std::string_view, 12> kMonths = {"january",   "february", "march",    "april",
                                                      "may",       "june",     "july",     "august",
                                                      "september", "october",  "november", "december"};
constexpr double kSecondsADay = 86400;
constexpr Date kFirstDate = Date_Of(100, 1, 1);
constexpr Date kLastDate = Date_Of(9999, 12, 31);

std::string Printed(const char* format, auto... numbers) {
    std::array<char, 64> buffer;
    const int size = std::snprintf(buffer.data(), buffer.size(), format, numbers...);
    return {buffer.data(), static_cast<std::size_t>(size)};
}

}  // namespace

Date Date_Of(const CivilDate& civil) {
    const double day = Date_Of(civil.year, civil.month, civil.day).serial;
    const double time = (civil.hour * 3600.0 + civil.minute * 60.0 + civil.second) / kSecondsADay;
    return Date{day < 0 ? day - time : day + time};
}

// Before the first day the time still counts forward: -1.25 is 12/29/1899, six in the morning.
CivilDate To_Civil(Date date) {
    double serial = std::isnan(date.serial) ? 0 : date.serial;
    serial = std::clamp(serial, kFirstDate.serial - 0.99999, kLastDate.serial + 0.99999);
    const double whole = std::trunc(serial);
    int number = static_cast<int>(whole);
    int seconds = static_cast<int>(std::lround(std::abs(serial - whole) * kSecondsADay));
    if (seconds == static_cast<int>(kSecondsADay)) {
        ++number;
        seconds = 0;
    }
    const std::chrono::year_month_day day{kDayZero + std::chrono::days(number)};
    CivilDate civil;
    civil.year = static_cast<int>(day.year());
    civil.month = static_cast<int>(static_cast<unsigned>(day.month()));
    civil.day = static_cast<int>(static_cast<unsigned>(day.day()));
    civil.hour = seconds / 3600;
    civil.minute = seconds / 60 % 60;
    civil.second = seconds % 60;
    return civil;
}

Date Add_Years(Date date, int years) {
    CivilDate civil = To_Civil(date);
    civil.year += years;
    if (civil.month == 2 && civil.day == 29 && !std::chrono::year(civil.year).is_leap()) civil.day = 28;
    return Date_Of(civil);
}

namespace {

// Reads a date text from left to right.
class DateReader {
  public:
    explicit DateReader(std::string_view text) : text_(Trim(text)) {}

    std::optional<Date> Read() {
        if (!Read_Day() || !Read_Time() || !text_.empty()) return std::nullopt;
        if (!Is_Real_Date(civil_.year, civil_.month, civil_.day)) return std::nullopt;
        return Date_Of(civil_);
    }

  private:
    struct Number {
        int value = 0;
        int digits = 0;
    };

    char Next() const { return text_.empty() ? '\0' : text_.front(); }
    static bool Is_Digit(char c) { return c >= '0' && c <= '9'; }
    static bool Is_Letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
    bool Take(char c) {
        if (Next() != c) return false;
        text_.remove_prefix(1);
        return true;
    }
    void Skip_Blanks() { text_ = Trim_Left(text_); }

    std::optional<Number> Read_Number() {
        Number number;
        while (Is_Digit(Next()) && number.digits < 5) {
            number.value = number.value * 10 + (Next() - '0');
            ++number.digits;
            text_.remove_prefix(1);
        }
        if (number.digits == 0 || number.digits == 5) return std::nullopt;
        return number;
    }

    // A month's name, or its first three letters or more.
    std::optional<int> Read_Month() {
        std::size_t size = 0;
        while (size < text_.size() && Is_Letter(text_[size])) ++size;
        const std::string word = To_Lower(text_.substr(0, size));
        if (size < 3) return std::nullopt;
        for (std::size_t i = 0; i < kMonths.size(); ++i) {
            if (kMonths[i].starts_with(word)) {
                text_.remove_prefix(size);
                return static_cast<int>(i) + 1;
            }
        }
        return std::nullopt;
    }

    // The mark between two parts: a slash or a hyphen, or where a month is named a comma or blanks.
    char Read_Mark() {
        Skip_Blanks();
        for (const char mark : {'/', '-', ','}) {
            if (Take(mark)) {
                Skip_Blanks();
                return mark;
            }
        }
        return ' ';
    }

    static int Full_Year(Number year) {
        if (year.digits > 2) return year.value;
        return year.value < 30 ? 2000 + year.value : 1900 + year.value;
    }

    bool Read_Day() {
        if (Is_Letter(Next())) return Read_Month_First();
        const auto first = Read_Number();
        if (!first) return false;
        const char mark = Read_Mark();
        return Is_Letter(Next()) ? Read_Month_And_Year(*first) : Read_Numbers(*first, mark);
    }

    // Oct 1, 2015
    bool Read_Month_First() {
        const auto month = Read_Month();
        Read_Mark();
        const auto day = Read_Number();
        const char mark = Read_Mark();
        const auto year = Read_Number();
        return month && day && year && mark != '/' && Set(*year, *month, *day);
    }

    // 1 Oct 2015
    bool Read_Month_And_Year(Number day) {
        const auto month = Read_Month();
        Read_Mark();
        const auto year = Read_Number();
        return month && year && Set(*year, *month, day);
    }

    // 10/1/2015, or 2015-10-01
    bool Read_Numbers(Number first, char mark) {
        const auto second = Read_Number();
        if (!second || (mark != '/' && mark != '-') || Read_Mark() != mark) return false;
        const auto third = Read_Number();
        if (!third) return false;
        return first.digits > 2 ? Set(first, second->value, *third) : Set(*third, first.value, *second);
    }

    bool Set(Number year, int month, Number day) {
        if (day.digits > 2) return false;
        civil_.year = Full_Year(year);
        civil_.month = month;
        civil_.day = day.value;
        return true;
    }

    // "8:05", "8:05:09 PM", "T08:05:09"; nothing at all is midnight.
    bool Read_Time() {
        if (text_.empty()) return true;
        if (!Take('T') && Next() != ' ') return false;
        Skip_Blanks();
        const auto hour = Read_Number();
        if (!hour || !Take(':')) return false;
        const auto minute = Read_Number();
        if (!minute) return false;
        Number second;
        if (Take(':')) {
            const auto given = Read_Number();
            if (!given) return false;
            second = *given;
        }
        if (hour->digits > 2 || hour->value > 23 || minute->digits > 2 || minute->value > 59 || second.digits > 2 ||
            second.value > 59) {
            return false;
        }
        civil_.hour = hour->value;
        civil_.minute = minute->value;
        civil_.second = second.value;
        return Read_Half_Day();
    }

    bool Read_Half_Day() {
        Skip_Blanks();
        if (text_.empty()) return true;
        const bool after = Same_Text(text_, "PM");
        if ((!after && !Same_Text(text_, "AM")) || civil_.hour < 1 || civil_.hour > 12) return false;
        civil_.hour = civil_.hour % 12 + (after ? 12 : 0);
        text_ = {};
        return true;
    }

    std::string_view text_;
    CivilDate civil_;
};

}  // namespace

std::optional<Date> Parse_Date(std::string_view text) {
    return DateReader(text).Read();
}

std::string General_Date(Date date) {
    const CivilDate c = To_Civil(date);
    std::string text = Printed("%d/%d/%d", c.month, c.day, c.year);
    if (c.hour != 0 || c.minute != 0 || c.second != 0) {
        text += Printed(" %d:%02d:%02d %s", (c.hour + 11) % 12 + 1, c.minute, c.second, c.hour < 12 ? "AM" : "PM");
    }
    return text;
}

std::string Iso_Date_Time(Date date) {
    const CivilDate c = To_Civil(date);
    return Iso_Date(date) + Printed("T%02d:%02d:%02d", c.hour, c.minute, c.second);
}

std::string Iso_Date(Date date) {
    const CivilDate c = To_Civil(date);
    return Printed("%04d-%02d-%02d", c.year, c.month, c.day);
}

bool Is_Valid_Date(std::string_view text, Date today) {
    constexpr Date kEarliest = Date_Of(1966, 1, 1);
    const auto date = Parse_Date(text);
    return date && *date >= kEarliest && *date <= today;
}

}  // namespace tallmar
