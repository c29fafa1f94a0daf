#include "sql/token_reader.h"

#include <charconv>

#include "sql/keywords.h"
#include "sql/limits.h"

namespace tallmar::sql {

TokenReader::TokenReader(std::string_view text, int firstLiteral) : text_(text), literals_(firstLiteral) {
    if (text.size() > kLongestStatement) throw DbError(DbErrorCode::TooComplex);
    Lexer lexer(text);
    LiftRule rule;
    Token token;
    while (lexer.Next(token)) {
        tokens_.push_back(token);
        lifted_.push_back(rule.Lifts(token));
    }
    tokens_.push_back(token);
    lifted_.push_back(false);
}

bool TokenReader::Take_Word(std::string_view word) {
    const bool there = At_Word(word);
    if (there) ++at_;
    return there;
}

bool TokenReader::Take_Sign(std::string_view sign) {
    const bool there = Is_Sign(0, sign);
    if (there) ++at_;
    return there;
}

void TokenReader::Need_Word(std::string_view word) {
    if (!Take_Word(word)) Fail();
}

void TokenReader::Need_Sign(std::string_view sign) {
    if (!Take_Sign(sign)) Fail();
}

void TokenReader::Need_End() {
    Take_Sign(";");
    if (Peek().kind != TokenKind::End) Fail();
}

bool TokenReader::At_Name() const {
    return Peek().kind == TokenKind::Name || (Peek().kind == TokenKind::Word && !Is_Reserved(Peek().text));
}

std::string TokenReader::Name() {
    if (!At_Name()) Fail();
    return std::string(tokens_[at_++].text);
}

FieldName TokenReader::Field_Name() {
    FieldName field;
    field.place = Here();
    field.name = Name();
    if (!Take_Sign(".")) return field;
    field.table = std::move(field.name);
    if (Peek().kind != TokenKind::Word && Peek().kind != TokenKind::Name) Fail();
    field.name = tokens_[at_++].text;
    return field;
}

int TokenReader::Whole_Number() {
    const std::string_view digits = Peek().text;
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (Peek().kind != TokenKind::Number || error != std::errc{} || end != digits.data() + digits.size()) Fail();
    ++at_;
    return number;
}

sql::Literal TokenReader::Literal() {
    if (!lifted_[at_]) Fail();
    ++literals_;
    return Literal_Of(tokens_[at_++], text_);
}

void TokenReader::Fail_At(std::size_t at) const {
    const Token& token = tokens_[at];
    throw DbError(DbErrorCode::SyntaxError, text_.substr(token.offset, token.end - token.offset), text_, token.offset);
}

void TokenReader::Fail(DbErrorCode code, std::string_view argument, Place place) const {
    throw DbError(code, argument, text_, place.offset);
}

TokenReader::Deeper::Deeper(TokenReader& in) : in_(in) {
    if (++in_.depth_ > kDeepestTree) in_.Too_Complex(in_.Here());
}

}  // namespace tallmar::sql
