#include "common/dates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

#include "common/text.h"

namespace tallmar {

namespace {

constexpr std::array<std::string_view, 12> kMonths = {"january",   "february", "march",    "april",
                                                      "may",       "june",     "july",     "august",
                                                      "september", "october",  "november", "december"};
constexpr double kSecondsADay = 86400;
constexpr int kFirstSerial = -657434;  // 1/1/100
constexpr int kLastSerial = 2958465;   // 12/31/9999

constexpr bool Is_Leap(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int Days_In(int year, int month) {
    constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && Is_Leap(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

// Years are counted from March, so that the leap day comes last; eras have 400 years and 146097 days.
constexpr int kDaysAnEra = 146097;
constexpr int kEpoch = 693899;  // 12/30/1899, counted from 3/1/0

constexpr int Day_Number(int year, int month, int day) {
    const int y = month <= 2 ? year - 1 : year;
    const int era = y / 400;
    const int yearOfEra = y - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * kDaysAnEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - kEpoch;
}
static_assert(Day_Number(1899, 12, 30) == 0 && Day_Number(2000, 10, 1) == 36800);
static_assert(Day_Number(100, 1, 1) == kFirstSerial && Day_Number(9999, 12, 31) == kLastSerial);

CivilDate Civil_Of_Day(int number) {
    const int days = number + kEpoch;
    const int era = days / kDaysAnEra;
    const int dayOfEra = days - era * kDaysAnEra;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int fromMarch = (5 * dayOfYear + 2) / 153;
    CivilDate civil;
    civil.day = dayOfYear - (153 * fromMarch + 2) / 5 + 1;
    civil.month = fromMarch < 10 ? fromMarch + 3 : fromMarch - 9;
    civil.year = yearOfEra + era * 400 + (civil.month <= 2 ? 1 : 0);
    return civil;
}

std::string Printed(const char* format, auto... numbers) {
    std::array<char, 64> buffer;
    const int size = std::snprintf(buffer.data(), buffer.size(), format, numbers...);
    return {buffer.data(), static_cast<std::size_t>(size)};
}

}  // namespace

bool Is_Real_Date(int year, int month, int day) {
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= Days_In(year, month);
}

Date Date_Of(int year, int month, int day) {
    if (!Is_Real_Date(year, month, day)) throw std::invalid_argument("not a date");
    return Date{static_cast<double>(Day_Number(year, month, day))};
}

Date Date_Of(const CivilDate& civil) {
    const double day = Date_Of(civil.year, civil.month, civil.day).serial;
    const double time = (civil.hour * 3600.0 + civil.minute * 60.0 + civil.second) / kSecondsADay;
    return Date{day < 0 ? day - time : day + time};
}

// Before the first day the time still counts forward: -1.25 is 12/29/1899, six in the morning.
CivilDate To_Civil(Date date) {
    double serial = std::isnan(date.serial) ? 0 : date.serial;
    serial = std::clamp(serial, kFirstSerial - 0.99999, kLastSerial + 0.99999);
    const double whole = std::trunc(serial);
    int number = static_cast<int>(whole);
    int seconds = static_cast<int>(std::lround(std::abs(serial - whole) * kSecondsADay));
    if (seconds == static_cast<int>(kSecondsADay)) {
        ++number;
        seconds = 0;
    }
    CivilDate civil = Civil_Of_Day(number);
    civil.hour = seconds / 3600;
    civil.minute = seconds / 60 % 60;
    civil.second = seconds % 60;
    return civil;
}

Date Add_Years(Date date, int years) {
    CivilDate civil = To_Civil(date);
    civil.year += years;
    if (civil.month == 2 && civil.day == 29 && !Is_Leap(civil.year)) civil.day = 28;
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
        if (Is_Letter(Next())) {  // Oct 1, 2015
            const auto month = Read_Month();
            Read_Mark();
            const auto day = Read_Number();
            const char mark = Read_Mark();
            const auto year = Read_Number();
            return month && day && year && mark != '/' && Set(*year, *month, *day);
        }
        const auto first = Read_Number();
        if (!first) return false;
        const char mark = Read_Mark();
        if (Is_Letter(Next())) {  // 1 Oct 2015
            const auto month = Read_Month();
            Read_Mark();
            const auto year = Read_Number();
            return month && year && Set(*year, *month, *first);
        }
        const auto second = Read_Number();
        if (!second || (mark != '/' && mark != '-') || Read_Mark() != mark) return false;
        const auto third = Read_Number();
        if (!third) return false;
        if (first->digits > 2) return Set(*first, second->value, *third);  // 2015-10-01
        return Set(*third, first->value, *second);                         // 10/1/2015
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
    constexpr double kEarliest = 24108;  // 1/1/1966
    const auto date = Parse_Date(text);
    return date && date->serial >= kEarliest && *date <= today;
}

}  // namespace tallmar
