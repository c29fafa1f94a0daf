#include "sql/expression_parser.h"

#include <algorithm>

#include "sql/keywords.h"
#include "sql/limits.h"

namespace tallmar::sql {

namespace {

struct BinaryRow {
    std::string_view sign;
    Op op;
    Level level;
};
constexpr BinaryRow kBinary[] = {
    {"+", Op::Add, Level::Add},
    {"-", Op::Subtract, Level::Add},
    {"*", Op::Multiply, Level::Multiply},
    {"/", Op::Divide, Level::Multiply},
    {"\\", Op::IntDivide, Level::IntDivide},
    {"MOD", Op::Mod, Level::Mod},
    {"^", Op::Power, Level::Power},
    {"&", Op::Join, Level::Join},
    {"=", Op::Equal, Level::Compare},
    {"<>", Op::NotEqual, Level::Compare},
    {"<", Op::Less, Level::Compare},
    {"<=", Op::LessEqual, Level::Compare},
    {">", Op::Greater, Level::Compare},
    {">=", Op::GreaterEqual, Level::Compare},
};

constexpr Level Above(Level level) {
    return static_cast<Level>(static_cast<int>(level) + 1);
}

class ExpressionParser {
  public:
    explicit ExpressionParser(TokenReader& in) : in_(in) {}

    ExprPtr Expression(Level least) {
        const TokenReader::Deeper deeper(in_);
        ExprPtr left = Prefixed();
        for (;;) {
            if (ExprPtr more = Continued(left, least)) {
                left = std::move(more);
            } else {
                return left;
            }
        }
    }

  private:
    ExprPtr Prefixed() {
        const Place place = in_.Here();
        if (in_.Take_Word("NOT")) return Node(ExprKind::Not, place, Expression(Level::Not));
        if (in_.Take_Sign("-")) return Node(ExprKind::Negate, place, Expression(Level::Negate));
        if (in_.Take_Sign("+")) return Expression(Level::Negate);
        return Primary();
    }

    // The expression that `left` begins, one operator further; nothing where what follows binds less than `least`.
    ExprPtr Continued(ExprPtr& left, Level least) {
        const Place place = in_.Here();
        if (least <= Level::Or && in_.Take_Word("OR")) {
            return Node(ExprKind::Or, place, std::move(left), Expression(Level::And));
        }
        if (least <= Level::And && in_.Take_Word("AND")) {
            return Node(ExprKind::And, place, std::move(left), Expression(Level::Not));
        }
        if (least <= Level::Compare) {
            if (ExprPtr test = Test(left)) return test;
        }
        const Token& token = in_.Peek();
        if (token.kind != TokenKind::Sign && token.kind != TokenKind::Word) return nullptr;
        for (const BinaryRow& row : kBinary) {
            if (row.level < least || !Is_Keyword(token.text, row.sign)) continue;
            in_.Skip();
            ExprPtr node = Node(ExprKind::Binary, place, std::move(left), Expression(Above(row.level)));
            node->op = row.op;
            return node;
        }
        return nullptr;
    }

    // [Not] Between, In, Like; Is [Not] Null.
    ExprPtr Test(ExprPtr& left) {
        const Place place = in_.Here();
        if (in_.Take_Word("IS")) {
            const bool negated = in_.Take_Word("NOT");
            in_.Need_Word("NULL");
            ExprPtr node = Node(ExprKind::IsNull, place, std::move(left));
            node->negated = negated;
            return node;
        }
        const std::size_t word = in_.At_Word("NOT") ? 1 : 0;
        ExprPtr node;
        if (in_.Is_Word(word, "BETWEEN")) {
            in_.Skip(word + 1);
            ExprPtr low = Expression(Level::Join);
            in_.Need_Word("AND");
            node = Node(ExprKind::Between, place, std::move(left), std::move(low), Expression(Level::Join));
        } else if (in_.Is_Word(word, "LIKE")) {
            in_.Skip(word + 1);
            node = Node(ExprKind::Like, place, std::move(left), Expression(Level::Join));
        } else if (in_.Is_Word(word, "IN")) {
            in_.Skip(word + 1);
            node = Node(ExprKind::In, place, std::move(left));
            in_.Need_Sign("(");
            do {
                Add_Argument(*node, Expression(Level::Or));
            } while (in_.Take_Sign(","));
            in_.Need_Sign(")");
        } else {
            return nullptr;
        }
        node->negated = word == 1;
        return node;
    }

    ExprPtr Primary() {
        const Token& token = in_.Peek();
        const Place place = in_.Here();
        switch (token.kind) {
            case TokenKind::Number:
            case TokenKind::Text:
            case TokenKind::Date:
                return Lifted();
            case TokenKind::Sign: {
                if (!in_.Take_Sign("(")) in_.Fail();
                ExprPtr inner = Expression(Level::Or);
                in_.Need_Sign(")");
                return inner;
            }
            case TokenKind::Word:
                if (in_.Is_Sign(1, "(") && (!Is_Reserved(token.text) || in_.At_Word("LEFT") || in_.At_Word("RIGHT")))
                    return Call();
                if (in_.Take_Word("NULL")) return Node(ExprKind::NullWord, place);
                if (in_.Take_Word("TRUE")) return Node(ExprKind::True, place);
                if (in_.Take_Word("FALSE")) return Node(ExprKind::False, place);
                break;
            default:
                break;
        }
        ExprPtr field = Node(ExprKind::Field, place);
        const FieldName name = in_.Field_Name();
        field->table = name.table;
        field->name = name.name;
        return field;
    }

    ExprPtr Lifted() {
        ExprPtr literal = Node(ExprKind::Literal, in_.Here());
        literal->index = in_.Next_Literal_Index();
        literal->literal = in_.Literal();
        return literal;
    }

    ExprPtr Call() {
        ExprPtr call = Node(ExprKind::Call, in_.Here());
        call->name = in_.Peek().text;
        in_.Skip(2);
        if (in_.Take_Sign(")")) return call;
        if (in_.Is_Sign(0, "*") && in_.Is_Sign(1, ")")) {
            Add_Argument(*call, Node(ExprKind::Star, in_.Here()));
            in_.Skip(2);
            return call;
        }
        do {
            Add_Argument(*call, Expression(Level::Or));
        } while (in_.Take_Sign(","));
        in_.Need_Sign(")");
        return call;
    }

    template <class... Args>
    ExprPtr Node(ExprKind kind, Place place, Args... args) {
        auto node = std::make_unique<Expr>();
        node->kind = kind;
        node->place = place;
        (Add_Argument(*node, std::move(args)), ...);
        return node;
    }

    void Add_Argument(Expr& node, ExprPtr argument) {
        node.depth = std::max(node.depth, argument->depth + 1);
        if (node.depth > kDeepestTree) in_.Too_Complex(node.place);
        node.args.push_back(std::move(argument));
    }

    TokenReader& in_;
};

}  // namespace

ExprPtr Parse_Expression(TokenReader& in) {
    return ExpressionParser(in).Expression(Level::Or);
}

}  // namespace tallmar::sql
