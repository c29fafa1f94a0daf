// The tokens of a statement, taken one after another by the parsers.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "common/db_error.h"
#include "sql/lexer.h"
#include "sql/tree.h"

namespace tallmar::sql {

// Taking moves on; Needing throws SyntaxError, with the place, where the token is another.
class TokenReader {
  public:
    // Literals of the text count from `firstLiteral` on. Throws as Lexer does, and TooComplex.
    TokenReader(std::string_view text, int firstLiteral);

    const Token& Peek(std::size_t ahead = 0) const { return tokens_[std::min(at_ + ahead, tokens_.size() - 1)]; }
    Place Here() const { return {Peek().offset}; }
    void Skip(std::size_t count = 1) { at_ += count; }

    // `word` in upper case.
    bool Is_Word(std::size_t ahead, std::string_view word) const {
        return Peek(ahead).kind == TokenKind::Word && Is_Keyword(Peek(ahead).text, word);
    }
    bool Is_Sign(std::size_t ahead, std::string_view sign) const {
        return Peek(ahead).kind == TokenKind::Sign && Peek(ahead).text == sign;
    }
    bool At_Word(std::string_view word) const { return Is_Word(0, word); }
    bool Take_Word(std::string_view word);
    bool Take_Sign(std::string_view sign);
    void Need_Word(std::string_view word);
    void Need_Sign(std::string_view sign);
    // The end of the text, after a ";" or without one.
    void Need_End();

    // A name of a field or table: no reserved word unless it is in brackets.
    bool At_Name() const;
    std::string Name();
    FieldName Field_Name();
    int Whole_Number();
    // A literal that is lifted out of the statement, with its place among those.
    sql::Literal Literal();
    int Next_Literal_Index() const { return literals_; }

    [[noreturn]] void Fail() const { Fail_At(at_); }
    // At the token taken last.
    [[noreturn]] void Fail_Before() const { Fail_At(at_ - 1); }
    [[noreturn]] void Fail(DbErrorCode code, std::string_view argument, Place place) const;
    [[noreturn]] void Too_Complex(Place place) const { Fail(DbErrorCode::TooComplex, {}, place); }

    // Counts how deep a parser has gone into itself. Throws TooComplex.
    class Deeper {
      public:
        explicit Deeper(TokenReader& in);
        ~Deeper() { --in_.depth_; }
        Deeper(const Deeper&) = delete;
        Deeper& operator=(const Deeper&) = delete;

      private:
        TokenReader& in_;
    };

  private:
    [[noreturn]] void Fail_At(std::size_t at) const;

    std::string_view text_;
    std::vector<Token> tokens_;
    std::vector<bool> lifted_;
    std::size_t at_ = 0;
    int literals_;
    int depth_ = 0;
};

}  // namespace tallmar::sql
