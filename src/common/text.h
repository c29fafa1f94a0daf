// Text as the report file compares it: UTF-8, without regard to case within code page 1252.
#pragma once

#include <string>
#include <string_view>

namespace tallmar {

// Case folding covers A-Z and the letters of code page 1252 (a-umlaut, e-acute, y-diaeresis, ...); bytes that are no
// valid UTF-8 mean themselves.
std::string To_Upper(std::string_view text);
std::string To_Lower(std::string_view text);
// <0, 0, >0 without regard to case. A total order: equal only where the folded texts are equal.
int Compare_Text(std::string_view a, std::string_view b);
// Orders texts without regard to case, in maps and sets.
struct LessText {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return Compare_Text(a, b) < 0; }
};
bool Same_Text(std::string_view a, std::string_view b);
// The pattern language of Like: * any run, ? one character, # one digit, [a-c] one of, [!a-c] none of. Without regard
// to case. A pattern that ends inside [ matches nothing; [] matches no character, [!] for an exclamation mark.
bool Like(std::string_view text, std::string_view pattern);

// Blanks (0x20) only, as the dialect's Trim.
std::string_view Trim(std::string_view text);
std::string_view Trim_Left(std::string_view text);
std::string_view Trim_Right(std::string_view text);

// Characters, not bytes; positions count from 1.
std::size_t Length(std::string_view text);
// A start or a count below 1 gives "".
std::string Mid(std::string_view text, long start, long count);
std::string Left(std::string_view text, long count);
std::string Right(std::string_view text, long count);
// Position of `what` in `text` from `start` on, case observed; 0 where it is not found or `start` lies outside the
// text. An empty `what` is found at `start`.
long In_Str(long start, std::string_view text, std::string_view what);

bool Begins_With(std::string_view text, std::string_view prefix);
// Every `from` replaced.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

// Code page 1252 at the program's borders. A character that the page does not have, or a stray byte, becomes '?'.
std::string To_Cp1252(std::string_view utf8);
std::string From_Cp1252(std::string_view bytes);
// The characters that the page does not have, each once, in quotes: "'日', '本'".
std::string Outside_Cp1252(std::string_view utf8);
bool Is_Valid_Utf8(std::string_view text);

}  // namespace tallmar
