#include "common/format.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <vector>

#include "common/dates.h"
#include "common/numbers.h"
#include "common/text.h"

namespace tallmar {

namespace {

// One step of a format text: a code, or a literal character.
struct Step {
    std::string text;
    bool literal = false;
    bool Is(std::string_view code) const { return !literal && text == code; }
};
using Section = std::vector<Step>;

// Splits at the semicolons outside of literals; "\x" and "..." are literal.
std::vector<Section> Sections_Of(std::string_view format) {
    std::vector<Section> sections(1);
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char c = format[i];
        if (c == ';') {
            sections.emplace_back();
        } else if (c == '\\' && i + 1 < format.size()) {
            sections.back().push_back({std::string(1, format[++i]), true});
        } else if (c == '"') {
            const std::size_t close = std::min(format.find('"', i + 1), format.size());
            sections.back().push_back({std::string(format.substr(i + 1, close - i - 1)), true});
            i = close;
        } else {
            sections.back().push_back({std::string(1, c), false});
        }
    }
    return sections;
}

bool Has_Any(const Section& section, std::string_view codes) {
    return std::any_of(section.begin(), section.end(), [codes](const Step& step) {
        return !step.literal && codes.find(step.text.front()) != std::string_view::npos;
    });
}

bool Is_Digit_Place(const Step& step) {
    return step.Is("0") || step.Is("#");
}

// ---- Numbers

// A decimal number as its digits, cut or filled to what a section shows.
struct Digits {
    std::string whole;     // no leading zeros; empty for 0
    std::string fraction;  // exactly the places asked for
    bool Is_Zero() const { return whole.empty() && fraction.find_first_not_of('0') == std::string::npos; }
};

// `text` is a decimal without a sign. Halves go away from zero.
Digits Rounded(std::string_view text, std::size_t places) {
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string digits(text.substr(0, point));
    std::string fraction(point < text.size() ? text.substr(point + 1) : "");
    const bool up = fraction.size() > places && fraction[places] >= '5';
    fraction.resize(places, '0');
    digits += fraction;
    if (up) {
        std::size_t i = digits.size();
        while (i > 0 && digits[i - 1] == '9') digits[--i] = '0';
        if (i > 0) {
            ++digits[i - 1];
        } else {
            digits.insert(digits.begin(), '1');
        }
    }
    Digits result{digits.substr(0, digits.size() - places), digits.substr(digits.size() - places)};
    result.whole.erase(0, std::min(result.whole.find_first_not_of('0'), result.whole.size()));
    return result;
}

// Where a section has its point, digit places and separators.
struct NumberLayout {
    std::size_t point = 0;  // index of the point, or the number of steps
    std::size_t places = 0, wholePlaces = 0;
    std::size_t filled = 0;  // whole places from the first "0" on
    bool grouped = false, percent = false;
};

NumberLayout Layout_Of(const Section& section) {
    NumberLayout layout;
    layout.point = static_cast<std::size_t>(
        std::find_if(section.begin(), section.end(), [](const Step& step) { return step.Is("."); }) - section.begin());
    for (std::size_t i = 0; i < section.size(); ++i) {
        if (Is_Digit_Place(section[i])) ++(i < layout.point ? layout.wholePlaces : layout.places);
        if (i < layout.point && (section[i].Is("0") || (section[i].Is("#") && layout.filled > 0))) ++layout.filled;
        layout.grouped = layout.grouped || (section[i].Is(",") && i < layout.point && layout.wholePlaces > 0);
        layout.percent = layout.percent || section[i].Is("%");
    }
    return layout;
}

// How many places are left: zeros at the end fall away under "#", from the right, up to the first "0".
std::size_t Shown_Places(const Section& section, const NumberLayout& layout, const Digits& number) {
    std::size_t shown = number.fraction.size();
    for (std::size_t i = section.size(); i > layout.point && shown > 0; --i) {
        if (!Is_Digit_Place(section[i - 1])) continue;
        if (section[i - 1].Is("0") || number.fraction[shown - 1] != '0') break;
        --shown;
    }
    return shown;
}

// The digits before the point, with their separators, written up to each place in turn.
class WholeDigits {
  public:
    // A "0" fills from its place on; digits without a place of their own come before the first one.
    WholeDigits(const NumberLayout& layout, const Digits& number) : grouped_(layout.grouped), whole_(number.whole) {
        if (whole_.size() < layout.filled) whole_.insert(0, layout.filled - whole_.size(), '0');
    }
    void Write(std::string& result, std::size_t left) {
        for (; whole_.size() - written_ > left; ++written_) {
            result += whole_[written_];
            const std::size_t after = whole_.size() - written_ - 1;
            if (grouped_ && after > 0 && after % 3 == 0) result += ',';
        }
    }

  private:
    bool grouped_;
    std::string whole_;
    std::size_t written_ = 0;
};

std::string Laid_Out(const Section& section, const NumberLayout& layout, const Digits& number) {
    const std::size_t shown = Shown_Places(section, layout, number);
    WholeDigits whole(layout, number);
    std::string result;
    std::size_t placesLeft = layout.wholePlaces;
    std::size_t place = 0;
    for (std::size_t i = 0; i < section.size(); ++i) {
        const Step& step = section[i];
        const bool beforePoint = i < layout.point;
        if (i == layout.point) {
            whole.Write(result, 0);
            result += '.';
        } else if (Is_Digit_Place(step)) {
            if (beforePoint) {
                whole.Write(result, --placesLeft);
            } else if (place < shown) {
                result += number.fraction[place++];
            }
        } else if (!(beforePoint && layout.grouped && step.Is(","))) {
            result += step.text;
        }
    }
    return result;
}

// The plain decimal of a number, its shortest text.
std::string Decimal_Text(const Value& value) {
    if (value.Is<Currency>() || value.Is<std::int32_t>()) return value.To_Text();
    return Number_Text(value.To_Double());
}

std::string Times_Hundred(std::string text) {
    const std::size_t point = std::min(text.find('.'), text.size());
    text += point == text.size() ? ".00" : "00";
    text.erase(point, 1);
    text.insert(point + 2, 1, '.');
    return text;
}

std::string Format_Number(const Value& value, const std::vector<Section>& sections) {
    std::string text = Decimal_Text(value);
    if (text.find_first_of("in") != std::string::npos) return text;  // inf, nan
    const bool negative = text.front() == '-';
    if (negative) text.erase(0, 1);
    const auto given = [&](std::size_t i) { return sections.size() > i && !sections[i].empty(); };
    const auto rounded = [&](const Section& section) {
        const NumberLayout layout = Layout_Of(section);
        return Rounded(layout.percent ? Times_Hundred(text) : text, layout.places);
    };
    const bool own = negative && given(1);
    const Section* section = own ? &sections[1] : &sections[0];
    Digits digits = rounded(*section);
    bool sign = negative && !own;
    // What rounds to zero is shown as zero, without a sign or parentheses.
    if (digits.Is_Zero()) {
        section = given(2) ? &sections[2] : &sections[0];
        digits = rounded(*section);
        sign = sign && !digits.Is_Zero();
    }
    return (sign ? "-" : "") + Laid_Out(*section, Layout_Of(*section), digits);
}

// ---- Dates

constexpr std::array<std::string_view, 12> kMonthNames = {"January",   "February", "March",    "April",
                                                          "May",       "June",     "July",     "August",
                                                          "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> kDayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};

struct NamedFormat {
    std::string_view name, format;
};
constexpr std::array<NamedFormat, 6> kNamedDates = {{{"Short Date", "m/d/yyyy"},
                                                     {"Medium Date", "dd-mmm-yy"},
                                                     {"Long Date", "dddd, mmmm d, yyyy"},
                                                     {"Short Time", "hh:nn"},
                                                     {"Medium Time", "hh:nn AM/PM"},
                                                     {"Long Time", "h:nn:ss AM/PM"}}};

std::string Filled(int number, std::size_t width) {
    std::string text = std::to_string(number);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

// Texts of the halves of the day: the code as written gives the case.
struct HalfDay {
    std::string_view code, before, after;
};
constexpr std::array<HalfDay, 4> kHalfDays = {
    {{"AM/PM", "AM", "PM"}, {"am/pm", "am", "pm"}, {"A/P", "A", "P"}, {"a/p", "a", "p"}}};

const HalfDay* Half_Day_At(const Section& section, std::size_t at) {
    std::string ahead;
    for (std::size_t i = at; i < section.size() && i < at + 5 && !section[i].literal; ++i) ahead += section[i].text;
    for (const HalfDay& half : kHalfDays) {
        if (ahead.starts_with(half.code)) return &half;
    }
    return nullptr;
}

// `run` times the letter `code`; minutes are "n", or "m" behind an hour.
std::string Date_Part(char code, std::size_t run, const CivilDate& c, bool twelveHours) {
    const auto name = [](std::string_view full, std::size_t width) {
        return std::string(width == 3 ? full.substr(0, 3) : full);
    };
    switch (code) {
        case 'm':
            if (run > 2) return name(kMonthNames[static_cast<std::size_t>(c.month - 1)], run);
            return Filled(c.month, run);
        case 'd': {
            if (run <= 2) return Filled(c.day, run);
            const auto serial = static_cast<int>(Date_Of(c.year, c.month, c.day).serial);
            return name(kDayNames[static_cast<std::size_t>(((serial + 6) % 7 + 7) % 7)], run);
        }
        case 'y':
            if (run == 1) {
                return std::to_string(
                    static_cast<int>(Date_Of(c.year, c.month, c.day).serial - Date_Of(c.year, 1, 1).serial) + 1);
            }
            return run == 2 ? Filled(c.year % 100, 2) : Filled(c.year, 4);
        case 'h':
            return Filled(twelveHours ? (c.hour + 11) % 12 + 1 : c.hour, std::min<std::size_t>(run, 2));
        case 'n':
            return Filled(c.minute, std::min<std::size_t>(run, 2));
        default:
            return Filled(c.second, std::min<std::size_t>(run, 2));
    }
}

std::string Format_Date(Date date, const Section& section) {
    const CivilDate civil = To_Civil(date);
    bool twelveHours = false;
    for (std::size_t i = 0; i < section.size(); ++i) {
        twelveHours = twelveHours || Half_Day_At(section, i) != nullptr;
    }
    std::string result;
    bool afterHour = false;
    for (std::size_t i = 0; i < section.size();) {
        const Step& step = section[i];
        if (const HalfDay* half = Half_Day_At(section, i)) {
            result += civil.hour < 12 ? half->before : half->after;
            i += half->code.size();
            continue;
        }
        const std::string lower = To_Lower(step.text);
        if (step.literal || std::string_view("mdyhns").find(lower) == std::string_view::npos) {
            result += step.text;
            ++i;
            continue;
        }
        std::size_t run = 1;
        while (i + run < section.size() && !section[i + run].literal && To_Lower(section[i + run].text) == lower) ++run;
        const char code = lower == "m" && afterHour && run <= 2 ? 'n' : lower.front();
        result += Date_Part(code, run, civil, twelveHours);
        afterHour = code == 'h';
        i += run;
    }
    return result;
}

// ---- Texts

// "@" is a character or a blank, "&" a character or nothing; the places fill from the right. ">" and "<" set the case.
std::string Format_Text(std::string text, const Section& section) {
    if (Has_Any(section, ">")) text = To_Upper(text);
    if (Has_Any(section, "<")) text = To_Lower(text);
    const auto places = static_cast<long>(
        std::count_if(section.begin(), section.end(), [](const Step& step) { return step.Is("@") || step.Is("&"); }));
    const auto length = static_cast<long>(Length(text));
    if (places == 0) return text;
    std::string result;
    long at = 1;           // the next character
    long before = places;  // places from here on
    for (const Step& step : section) {
        if (step.Is(">") || step.Is("<")) continue;
        if (!step.Is("@") && !step.Is("&")) {
            result += step.text;
        } else if (before > length) {
            if (step.Is("@")) result += ' ';
            --before;
        } else {
            const long count = before == places && length > places ? length - places + 1 : 1;
            result += Mid(text, at, count);
            at += count;
            --before;
        }
    }
    return result;
}

// What `write` makes of a value that is a date; any other value as its text.
template <class Write>
std::string Date_Or_Text(const Value& value, Write write) {
    try {
        return write();
    } catch (const std::exception&) {
        return value.To_Text();
    }
}

std::string Format_By(const Value& value, const std::vector<Section>& sections) {
    const auto has = [&](std::string_view codes) {
        return std::ranges::any_of(sections, [&](const Section& section) { return Has_Any(section, codes); });
    };
    if (has("0#")) {
        if (value.Is_Null()) return sections.size() > 3 ? Laid_Out(sections[3], Layout_Of(sections[3]), {}) : "";
        return value.Is_Numeric() ? Format_Number(value, sections) : value.To_Text();
    }
    if (value.Is_Null()) return "";
    if (has("@&<>")) return Format_Text(value.To_Text(), sections[0]);
    if (has("mMdDyYhHnNsS")) {
        return Date_Or_Text(value, [&] {
            const Value number = value.Is<std::string>() && value.Is_Numeric() ? Value(value.To_Double()) : value;
            return Format_Date(number.To_Date(), sections[0]);
        });
    }
    std::string literals;
    for (const Step& step : sections[0]) literals += step.text;
    return literals;
}

}  // namespace

std::string Format(const Value& value, std::string_view format) {
    if (format.empty()) return value.To_Text();
    if (Same_Text(format, "General Date")) {
        if (value.Is_Null()) return "";
        return Date_Or_Text(value, [&] { return General_Date(value.To_Date()); });
    }
    for (const NamedFormat& named : kNamedDates) {
        if (Same_Text(format, named.name)) format = named.format;
    }
    return Format_By(value, Sections_Of(format));
}

}  // namespace tallmar
