#include "common/text.h"

#include <array>

namespace tallmar {

namespace {

// One character of a text: its code point, and how many bytes it takes. A byte that begins no valid sequence stands
// for itself, above all code points, so that it never equals a letter.
struct Character {
    char32_t code = 0;
    std::size_t size = 1;
    bool valid = true;
};
constexpr char32_t kStrayByte = 0x110000;

constexpr unsigned char Byte_At(std::string_view text, std::size_t i) {
    return static_cast<unsigned char>(text[i]);
}

Character Decode(std::string_view text, std::size_t at) {
    const unsigned char lead = Byte_At(text, at);
    if (lead < 0x80) return {lead, 1, true};
    const Character stray{kStrayByte + lead, 1, false};
    const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + size > text.size()) return stray;
    char32_t code = lead & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const unsigned char next = Byte_At(text, at + i);
        if ((next & 0xC0U) != 0x80U) return stray;
        code = (code << 6U) | (next & 0x3FU);
    }
    // Longer forms of short characters, halves of pairs, and what lies beyond the last plane.
    constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    if (code < kLeast[size] || (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF) return stray;
    return {code, size, true};
}

void Append(std::string& text, char32_t code) {
    const auto put = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0U | (code >> 6U));
        put(0x80U | (code & 0x3FU));
    } else {
        put(0xE0U | (code >> 12U));
        put(0x80U | ((code >> 6U) & 0x3FU));
        put(0x80U | (code & 0x3FU));
    }
}

constexpr char32_t Lower_Code(char32_t c) {
    if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
    if (c >= 0xC0 && c <= 0xDE) return c == 0xD7 ? c : c + 32;  // A-grave to thorn, without the times sign
    if (c == 0x160 || c == 0x152 || c == 0x17D) return c + 1;   // s-caron, oe, z-caron
    return c == 0x178 ? 0xFF : c;                               // y-diaeresis
}

constexpr char32_t Upper_Code(char32_t c) {
    if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
    if (c >= 0xE0 && c <= 0xFE) return c == 0xF7 ? c : c - 32;
    if (c == 0x161 || c == 0x153 || c == 0x17E) return c - 1;
    return c == 0xFF ? 0x178 : c;
}

template <class Fold>
std::string Folded(std::string_view text, Fold fold) {
    std::string result(text);
    std::size_t i = 0;
    while (i < result.size()) {
        const unsigned char byte = Byte_At(result, i);
        if (byte < 0x80) {
            result[i++] = static_cast<char>(fold(char32_t{byte}));
            continue;
        }
        const Character c = Decode(result, i);
        if (c.size == 2) {  // every folded letter beyond ASCII takes two bytes in either case
            const char32_t other = fold(c.code);
            result[i] = static_cast<char>(static_cast<unsigned char>(0xC0U | (other >> 6U)));
            result[i + 1] = static_cast<char>(static_cast<unsigned char>(0x80U | (other & 0x3FU)));
        }
        i += c.size;
    }
    return result;
}

}  // namespace

std::string To_Upper(std::string_view text) {
    return Folded(text, Upper_Code);
}
std::string To_Lower(std::string_view text) {
    return Folded(text, Lower_Code);
}

int Compare_Text(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const unsigned char left = Byte_At(a, i);
        const unsigned char right = Byte_At(b, j);
        if (left < 0x80 && right < 0x80) {
            const char32_t x = Lower_Code(left);
            const char32_t y = Lower_Code(right);
            if (x != y) return x < y ? -1 : 1;
            ++i;
            ++j;
            continue;
        }
        const Character c = Decode(a, i);
        const Character d = Decode(b, j);
        const char32_t x = Lower_Code(c.code);
        const char32_t y = Lower_Code(d.code);
        if (x != y) return x < y ? -1 : 1;
        i += c.size;
        j += d.size;
    }
    return (i < a.size() ? 1 : 0) - (j < b.size() ? 1 : 0);
}

bool Same_Text(std::string_view a, std::string_view b) {
    return Compare_Text(a, b) == 0;
}

namespace {

// The place after the ']' that closes the list opened at `open`; npos where none does.
std::size_t List_End(std::string_view pattern, std::size_t open) {
    const std::size_t close = pattern.find(']', open + 1);
    return close == std::string_view::npos ? close : close + 1;
}

// `list` is what is between the brackets; "!" alone is a list of that one character.
bool In_List(std::string_view list, char32_t c) {
    const bool none = list.size() > 1 && list.front() == '!';
    if (none) list.remove_prefix(1);
    bool found = false;
    std::size_t i = 0;
    while (i < list.size() && !found) {
        const Character low = Decode(list, i);
        i += low.size;
        char32_t high = low.code;
        if (i + 1 < list.size() && list[i] == '-') {
            const Character last = Decode(list, i + 1);
            high = last.code;
            i += 1 + last.size;
        }
        found = c >= Lower_Code(low.code) && c <= Lower_Code(high);
    }
    return found != none;
}

bool Every_List_Is_Closed(std::string_view pattern) {
    std::size_t open = pattern.find('[');
    while (open != std::string_view::npos) {
        const std::size_t end = List_End(pattern, open);
        if (end == std::string_view::npos) return false;
        open = pattern.find('[', end);
    }
    return true;
}

}  // namespace

// Only the last "*" is ever tried again, so that a hostile pattern costs no more than text x pattern.
bool Like(std::string_view text, std::string_view pattern) {
    if (!Every_List_Is_Closed(pattern)) return false;
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t starPattern = std::string_view::npos;
    std::size_t starText = 0;
    for (;;) {
        while (p < pattern.size() && (pattern[p] == '*' || pattern.substr(p, 2) == "[]")) {
            if (pattern[p] == '*') {
                starPattern = ++p;
                starText = t;
            } else {
                p += 2;  // an empty list matches nothing
            }
        }
        if (t == text.size()) return p == pattern.size();
        const Character c = Decode(text, t);
        bool matches = false;
        std::size_t next = p;
        if (p < pattern.size()) {
            const Character atom = Decode(pattern, p);
            next = p + atom.size;
            const char32_t folded = Lower_Code(c.code);
            if (atom.code == '?') {
                matches = true;
            } else if (atom.code == '#') {
                matches = c.code >= '0' && c.code <= '9';
            } else if (atom.code == '[') {
                next = List_End(pattern, p);
                matches = In_List(pattern.substr(p + 1, next - p - 2), folded);
            } else {
                matches = Lower_Code(atom.code) == folded;
            }
        }
        if (matches) {
            p = next;
            t += c.size;
        } else if (starPattern != std::string_view::npos) {
            starText += Decode(text, starText).size;
            p = starPattern;
            t = starText;
        } else {
            return false;
        }
    }
}

std::string_view Trim(std::string_view text) {
    return Trim_Left(Trim_Right(text));
}

std::string_view Trim_Left(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view Trim_Right(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);  // npos + 1 is 0
}

namespace {

// The byte where the character after the first `count` ones begins.
std::size_t Byte_Offset(std::string_view text, long count) {
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) at += Decode(text, at).size;
    return at;
}

}  // namespace

std::size_t Length(std::string_view text) {
    std::size_t count = 0;
    std::size_t at = 0;
    for (; at < text.size(); ++count) at += Decode(text, at).size;
    return count;
}

std::string Mid(std::string_view text, long start, long count) {
    if (start < 1 || count < 1) return "";
    const std::string_view rest = text.substr(Byte_Offset(text, start - 1));
    return std::string(rest.substr(0, Byte_Offset(rest, count)));
}

std::string Left(std::string_view text, long count) {
    return Mid(text, 1, count);
}

std::string Right(std::string_view text, long count) {
    if (count < 1) return "";
    const auto length = static_cast<long>(Length(text));
    return std::string(text.substr(Byte_Offset(text, length - count)));
}

long In_Str(long start, std::string_view text, std::string_view what) {
    if (start < 1 || text.empty()) return 0;
    const std::size_t from = Byte_Offset(text, start - 1);
    if (from == text.size()) return 0;
    if (what.empty()) return start;
    const std::size_t at = text.find(what, from);
    return at == std::string_view::npos ? 0 : static_cast<long>(Length(text.substr(0, at))) + 1;
}

bool Begins_With(std::string_view text, std::string_view prefix) {
    return text.starts_with(prefix);
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    if (!from.empty()) {
        for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
            result += text.substr(0, at);
            result += to;
            text.remove_prefix(at + from.size());
        }
    }
    return result += text;
}

namespace {

// Bytes 80 to 9F of the page; the five that it leaves free mean the control of their own number.
constexpr std::array<char32_t, 32> kHighControls = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                    0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char Page_Byte(char32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(static_cast<unsigned char>(code));
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == code) return static_cast<char>(static_cast<unsigned char>(0x80 + i));
    }
    return '?';
}

}  // namespace

std::string To_Cp1252(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const Character c = Decode(utf8, at);
        result += Page_Byte(c.code);
        at += c.size;
    }
    return result;
}

std::string From_Cp1252(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned char byte = Byte_At(bytes, i);
        Append(result, byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80U] : char32_t{byte});
    }
    return result;
}

std::string Outside_Cp1252(std::string_view utf8) {
    std::string result;
    for (std::size_t at = 0; at < utf8.size();) {
        const Character c = Decode(utf8, at);
        if (c.code != '?' && Page_Byte(c.code) == '?') {
            const std::string quoted = "'" + std::string(utf8.substr(at, c.size)) + "'";
            if (result.find(quoted) == std::string::npos) result += (result.empty() ? "" : ", ") + quoted;
        }
        at += c.size;
    }
    return result;
}

bool Is_Valid_Utf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Character c = Decode(text, at);
        if (!c.valid) return false;
        at += c.size;
    }
    return true;
}

}  // namespace tallmar
