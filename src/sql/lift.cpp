// The hot path: every statement is cut into shape and literals, also when its plan is ready.
#include "common/db_error.h"
#include "sql/lexer.h"
#include "sql/limits.h"

namespace tallmar::sql {

namespace {

constexpr std::size_t kUsualLiterals = 8;

void Append_Upper(std::string& shape, std::string_view word) {
    const std::size_t at = shape.size();
    shape.resize(at + word.size());
    for (std::size_t i = 0; i < word.size(); ++i) shape[at + i] = Upper(word[i]);
}

}  // namespace

LiftedStatement Lift(std::string_view statement) {
    if (statement.size() > kLongestStatement) throw DbError(DbErrorCode::TooComplex);
    LiftedStatement lifted;
    lifted.shape.reserve(statement.size() + 8);
    lifted.literals.reserve(kUsualLiterals);
    Lexer lexer(statement);
    LiftRule rule;
    Token token;
    while (lexer.Next(token)) {
        if (token.blankBefore && !lifted.shape.empty()) lifted.shape += ' ';
        if (rule.Lifts(token)) {
            lifted.literals.push_back(Literal_Of(token, statement));
            lifted.shape += '?';
            lifted.shape += static_cast<char>(lifted.literals.back().kind);
        } else if (token.kind == TokenKind::Word) {
            Append_Upper(lifted.shape, token.text);
        } else {
            lifted.shape += statement.substr(token.offset, token.end - token.offset);
        }
    }
    if (lifted.literals.size() > kMostLiterals) throw DbError(DbErrorCode::TooComplex);
    return lifted;
}

bool Is_Select(std::string_view statement) {
    Lexer lexer(statement);
    Token token;
    if (!lexer.Next(token) || token.kind != TokenKind::Word || !Is_Keyword(token.text, "SELECT")) return false;
    while (lexer.Next(token)) {
        if (token.kind == TokenKind::Word && Is_Keyword(token.text, "INTO")) return false;
    }
    return true;
}

}  // namespace tallmar::sql
