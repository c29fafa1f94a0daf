// The hot road: every statement is cut into shape and literals, also when its plan is ready.
#include "common/db/error.h"
#include "common/db/lexer.h"
#include "common/db/limits.h"

namespace tallmar {

LiftedStatement Lift(std::string_view statement) {
    if (statement.size() > kLongestStatement) throw DbError(DbErrorCode::TooComplex);
    LiftedStatement lifted;
    lifted.shape.reserve(statement.size() + 8);
    Lexer lexer(statement);
    LiftRule rule;
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
        if (token.blankBefore && !lifted.shape.empty()) lifted.shape += ' ';
        if (rule.Lifts(token)) {
            lifted.literals.push_back(Literal_Of(token, statement));
            lifted.shape += '?';
            lifted.shape += static_cast<char>(lifted.literals.back().kind);
        } else if (token.kind == TokenKind::Word) {
            for (const char c : token.text) lifted.shape += c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
        } else {
            lifted.shape += statement.substr(token.offset, token.end - token.offset);
        }
    }
    if (lifted.literals.size() > kMostLiterals) throw DbError(DbErrorCode::TooComplex);
    return lifted;
}

}  // namespace tallmar
