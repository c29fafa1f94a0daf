// The tokens of the dialect. One lexer serves both roads: lifting literals out of a statement, and parsing it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "sql/plan.h"

namespace tallmar::sql {

enum class TokenKind : std::uint8_t { Word, Name, Number, Text, Date, Sign, End };

struct Token {
    TokenKind kind = TokenKind::End;
    bool blankBefore = false;
    std::string_view text;   // as written; of Name, Text and Date what is between the marks, doubled quotes and all
    std::size_t offset = 0;  // where it begins, with its marks
    std::size_t end = 0;     // and where the next may begin
};

// Reads a statement from left to right. Views into the statement, which must outlive the tokens.
// Throws DbError(SyntaxError) with the place on a character that the dialect does not have and on a mark left open.
class Lexer {
  public:
    explicit Lexer(std::string_view statement) : statement_(statement) {}
    // Fills `token` in place; false at the end, which is a token too.
    bool Next(Token& token);

  private:
    void Between(Token& token, TokenKind kind, char close, bool doubles);
    void Number(Token& token);
    [[noreturn]] void Fail(std::size_t offset) const;

    std::string_view statement_;
    std::size_t at_ = 0;
};

// Which literals leave the text of a statement. Those that shape the plan stay: the count behind TOP, and all of a
// CREATE statement. Tokens must be shown one by one.
class LiftRule {
  public:
    bool Lifts(const Token& token);

  private:
    bool first_ = true;
    bool keepsAll_ = false;
    bool afterTop_ = false;
};

// The value of a Number, Text or Date token. Throws DbError(SyntaxError) on a date that is none.
Literal Literal_Of(const Token& token, std::string_view statement);

// Without regard to case, ASCII letters only; `keyword` in upper case.
bool Is_Keyword(std::string_view word, std::string_view keyword);

// Classes of characters, looked up: every statement goes through here character by character.
enum CharClass : std::uint8_t { kBlankChar = 1, kWordStart = 2, kDigit = 4, kSignChar = 8 };
inline constexpr std::array<std::uint8_t, 256> kCharClasses = [] {
    std::array<std::uint8_t, 256> classes{};
    for (const char c : {' ', '\t', '\r', '\n'}) classes[static_cast<unsigned char>(c)] = kBlankChar;
    for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = kDigit;
    for (std::size_t c = 'A'; c <= 'Z'; ++c) classes[c] = classes[c + 'a' - 'A'] = kWordStart;
    for (std::size_t c = 0x80; c < 256; ++c) classes[c] = kWordStart;
    classes['_'] = kWordStart;
    for (const char c : std::string_view("()+-*/\\^&=<>,.;")) classes[static_cast<unsigned char>(c)] = kSignChar;
    return classes;
}();
constexpr bool Is_Of(char c, int classes) {
    return (kCharClasses[static_cast<unsigned char>(c)] & classes) != 0;
}
constexpr bool Is_Word_Start(char c) {
    return Is_Of(c, kWordStart);
}
constexpr bool Is_Digit(char c) {
    return Is_Of(c, kDigit);
}
constexpr bool Is_Word_Part(char c) {
    return Is_Of(c, kWordStart | kDigit);
}
constexpr char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

}  // namespace tallmar::sql
