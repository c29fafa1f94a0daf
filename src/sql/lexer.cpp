#include "sql/lexer.h"

#include <charconv>
#include <limits>

#include "common/dates.h"
#include "common/db_error.h"
#include "common/numbers.h"

namespace tallmar::sql {

namespace {

constexpr int kDecimalPlaces = 4;

}  // namespace

bool Lexer::Next(Token& token) {
    const std::size_t before = at_;
    while (at_ < statement_.size() && Is_Of(statement_[at_], kBlankChar)) ++at_;
    token.offset = at_;
    token.blankBefore = at_ > before;
    if (at_ == statement_.size()) {
        token.kind = TokenKind::End;
        token.text = {};
        token.end = at_;
        return false;
    }
    const char c = statement_[at_];
    const char next = at_ + 1 < statement_.size() ? statement_[at_ + 1] : '\0';
    if (Is_Word_Start(c)) {
        ++at_;
        while (at_ < statement_.size() && Is_Word_Part(statement_[at_])) ++at_;
        if (at_ < statement_.size() && statement_[at_] == '$') ++at_;
        token.kind = TokenKind::Word;
        token.text = statement_.substr(token.offset, at_ - token.offset);
    } else if (Is_Digit(c) || (c == '.' && Is_Digit(next))) {
        Number(token);
    } else if (Is_Of(c, kSignChar)) {
        at_ += (c == '<' && (next == '=' || next == '>')) || (c == '>' && next == '=') ? 2 : 1;
        token.kind = TokenKind::Sign;
        token.text = statement_.substr(token.offset, at_ - token.offset);
    } else if (c == '"' || c == '\'') {
        Between(token, TokenKind::Text, c, true);
    } else if (c == '#') {
        Between(token, TokenKind::Date, '#', false);
    } else if (c == '[') {
        Between(token, TokenKind::Name, ']', false);
        if (token.text.empty() || token.text.find('\0') != std::string_view::npos) Fail(token.offset);
    } else {
        Fail(at_);
    }
    token.end = at_;
    return true;
}

// A text runs to its mark; a doubled mark means the mark itself.
void Lexer::Between(Token& token, TokenKind kind, char close, bool doubles) {
    const std::size_t start = at_ + 1;
    for (std::size_t i = start; i < statement_.size(); ++i) {
        if (statement_[i] != close) continue;
        if (doubles && i + 1 < statement_.size() && statement_[i + 1] == close) {
            ++i;
            continue;
        }
        at_ = i + 1;
        token.kind = kind;
        token.text = statement_.substr(start, i - start);
        return;
    }
    Fail(token.offset);
}

void Lexer::Number(Token& token) {
    const auto digits = [&] {
        while (at_ < statement_.size() && Is_Digit(statement_[at_])) ++at_;
    };
    digits();
    if (at_ < statement_.size() && statement_[at_] == '.') {
        ++at_;
        digits();
    }
    if (at_ < statement_.size() && Upper(statement_[at_]) == 'E') {
        std::size_t exponent = at_ + 1;
        if (exponent < statement_.size() && (statement_[exponent] == '-' || statement_[exponent] == '+')) ++exponent;
        if (exponent < statement_.size() && Is_Digit(statement_[exponent])) {
            at_ = exponent;
            digits();
        }
    }
    if (at_ < statement_.size() && Is_Word_Part(statement_[at_])) Fail(token.offset);
    token.kind = TokenKind::Number;
    token.text = statement_.substr(token.offset, at_ - token.offset);
}

void Lexer::Fail(std::size_t offset) const {
    std::size_t end = offset + 1;
    while (end < statement_.size() && Is_Word_Part(statement_[end])) ++end;
    throw DbError(DbErrorCode::SyntaxError, statement_.substr(offset, end - offset), statement_, offset);
}

bool LiftRule::Lifts(const Token& token) {
    if (first_) keepsAll_ = token.kind == TokenKind::Word && Is_Keyword(token.text, "CREATE");
    first_ = false;
    const bool kept = keepsAll_ || afterTop_;
    afterTop_ = token.kind == TokenKind::Word && Is_Keyword(token.text, "TOP");
    const bool literal =
        token.kind == TokenKind::Number || token.kind == TokenKind::Text || token.kind == TokenKind::Date;
    return literal && !kept;
}

namespace {

Literal Number_Literal(const Token& token, std::string_view statement) {
    Literal literal;
    std::int64_t digits = 0;
    int places = -1;
    bool plain = token.text.size() <= 15;
    for (const char c : token.text) {
        if (c == '.') {
            places = 0;
        } else if (Is_Digit(c)) {
            if (plain) digits = digits * 10 + (c - '0');
            if (places >= 0) ++places;
        } else {
            plain = false;
            places = kDecimalPlaces + 1;  // an exponent: never exact
        }
    }
    if (places < 0 && plain && digits <= std::numeric_limits<std::int32_t>::max()) {
        literal.value = static_cast<std::int32_t>(digits);
        literal.number = static_cast<double>(digits);
        return literal;
    }
    if (places >= 0 && places <= kDecimalPlaces) {
        if (const auto exact = Currency::From_Text(token.text)) {
            literal.kind = Literal::Kind::Decimal;
            literal.value = *exact;
            literal.number = exact->To_Double();
            return literal;
        }
    }
    const auto [end, error] = std::from_chars(token.text.data(), token.text.data() + token.text.size(), literal.number);
    if (error != std::errc{}) throw DbError(DbErrorCode::SyntaxError, token.text, statement, token.offset);
    literal.kind = Literal::Kind::Double;
    literal.value = literal.number;
    return literal;
}

}  // namespace

Literal Literal_Of(const Token& token, std::string_view statement) {
    if (token.kind == TokenKind::Number) return Number_Literal(token, statement);
    Literal literal;
    if (token.kind == TokenKind::Date) {
        const auto date = Parse_Date(token.text);
        if (!date) throw DbError(DbErrorCode::SyntaxError, token.text, statement, token.offset);
        literal.kind = Literal::Kind::Date;
        literal.value = *date;
        literal.number = date->serial;
        return literal;
    }
    literal.kind = Literal::Kind::Text;
    const char mark = statement[token.offset];
    if (token.text.find(mark) == std::string_view::npos) {
        literal.value = token.text;
        return literal;
    }
    std::string text;
    for (std::size_t i = 0; i < token.text.size(); ++i) {
        text += token.text[i];
        if (token.text[i] == mark) ++i;
    }
    literal.value = std::move(text);
    return literal;
}

bool Is_Keyword(std::string_view word, std::string_view keyword) {
    if (word.size() != keyword.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (Upper(word[i]) != keyword[i]) return false;
    }
    return true;
}

}  // namespace tallmar::sql
