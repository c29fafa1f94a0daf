#include "sql/parser.h"

#include <algorithm>
#include <charconv>

#include "common/db_error.h"
#include "sql/keywords.h"
#include "sql/lexer.h"
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

class Parser {
  public:
    Parser(std::string_view text, int firstLiteral) : text_(text), literals_(firstLiteral) {
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

    StatementTree Whole_Statement() {
        StatementTree statement = Any_Statement();
        Take_Sign(";");
        if (Peek().kind != TokenKind::End) Fail();
        return statement;
    }

    ExprPtr Whole_Criterion() {
        ExprPtr criterion = Expression(Level::Or);
        Take_Sign(";");
        if (Peek().kind != TokenKind::End) Fail();
        return criterion;
    }

  private:
    // Statements

    StatementTree Any_Statement() {
        if (At_Word("SELECT")) return Select_Statement();
        if (Take_Word("INSERT")) return Insert_Statement();
        if (Take_Word("UPDATE")) return Update_Statement();
        if (Take_Word("DELETE")) return Delete_Statement();
        if (Take_Word("DROP")) return Drop_Statement();
        if (Take_Word("CREATE")) return Create_Statement();
        Fail();
    }

    StatementTree Select_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::Select;
        statement.select = Select(true);
        return statement;
    }

    SelectTree Select(bool mayMakeTable) {
        SelectTree select;
        Need_Word("SELECT");
        select.distinct = Take_Word("DISTINCT");
        if (At_Word("TOP") && Peek(1).kind == TokenKind::Number) {
            ++at_;
            select.top = Whole_Number();
        }
        do {
            select.items.push_back(Item());
        } while (Take_Sign(","));
        if (mayMakeTable && Take_Word("INTO")) {
            select.intoPlace = Here();
            select.into = Name();
        }
        Need_Word("FROM");
        select.from = Tables();
        if (Take_Word("WHERE")) select.where = Expression(Level::Or);
        if (Take_Word("GROUP")) {
            Need_Word("BY");
            do {
                select.groupBy.push_back(Expression(Level::Or));
            } while (Take_Sign(","));
        }
        if (Take_Word("ORDER")) {
            Need_Word("BY");
            do {
                OrderItem item;
                item.expr = Expression(Level::Or);
                item.descending = Take_Word("DESC");
                if (!item.descending) Take_Word("ASC");
                select.orderBy.push_back(std::move(item));
            } while (Take_Sign(","));
        }
        return select;
    }

    SelectItem Item() {
        SelectItem item;
        item.place = Here();
        if (Take_Sign("*")) {
            item.kind = SelectItem::Kind::All;
        } else if (At_Name() && Is_Sign(1, ".") && Is_Sign(2, "*")) {
            item.kind = SelectItem::Kind::AllOf;
            item.name = Name();
            at_ += 2;
        } else {
            item.expr = Expression(Level::Or);
            if (Take_Word("AS")) item.name = Name();
        }
        return item;
    }

    StatementTree Insert_Statement() {
        StatementTree statement;
        Need_Word("INTO");
        statement.place = Here();
        statement.name = Name();
        statement.named = Take_Sign("(");
        if (statement.named) {
            do {
                statement.fields.push_back(Field_Name());
            } while (Take_Sign(","));
            Need_Sign(")");
        }
        if (Take_Word("VALUES")) {
            statement.kind = StatementTree::Kind::Insert;
            Need_Sign("(");
            do {
                statement.values.push_back(Expression(Level::Or));
            } while (Take_Sign(","));
            Need_Sign(")");
        } else {
            statement.kind = StatementTree::Kind::InsertSelect;
            statement.select = Select(false);
        }
        return statement;
    }

    StatementTree Update_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::Update;
        statement.place = Here();
        statement.select.from = Tables();
        Need_Word("SET");
        do {
            Assignment assignment;
            assignment.target = Field_Name();
            Need_Sign("=");
            assignment.value = Expression(Level::Or);
            statement.assignments.push_back(std::move(assignment));
        } while (Take_Sign(","));
        if (Take_Word("WHERE")) statement.select.where = Expression(Level::Or);
        return statement;
    }

    StatementTree Delete_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::Delete;
        std::string rowsOf;
        const Place rowsPlace = Here();
        if (!Take_Sign("*") && !At_Word("FROM")) {
            rowsOf = Name();
            Need_Sign(".");
            Need_Sign("*");
        }
        Need_Word("FROM");
        statement.place = Here();
        statement.name = Name();
        if (!rowsOf.empty() && !Same_Text(rowsOf, statement.name)) {
            throw DbError(DbErrorCode::UnknownTable, rowsOf, text_, rowsPlace.offset);
        }
        if (Take_Word("WHERE")) statement.select.where = Expression(Level::Or);
        return statement;
    }

    StatementTree Drop_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::DropTable;
        Need_Word("TABLE");
        statement.place = Here();
        statement.name = Name();
        return statement;
    }

    StatementTree Create_Statement() {
        StatementTree statement;
        const bool unique = Take_Word("UNIQUE");
        if (!unique && Take_Word("TABLE")) {
            statement.kind = StatementTree::Kind::CreateTable;
            statement.place = Here();
            statement.name = Name();
            Need_Sign("(");
            do {
                statement.newFields.push_back(New_Field());
            } while (Take_Sign(","));
            Need_Sign(")");
            return statement;
        }
        statement.kind = StatementTree::Kind::CreateIndex;
        Need_Word("INDEX");
        statement.index.unique = unique;
        statement.index.name = Name();
        Need_Word("ON");
        statement.place = Here();
        statement.name = Name();
        Need_Sign("(");
        do {
            statement.fields.push_back(Field_Name());
            statement.index.fields.push_back(statement.fields.back().name);
        } while (Take_Sign(","));
        Need_Sign(")");
        if (Take_Word("WITH")) {
            Need_Word("DISALLOW");
            Need_Word("NULL");
            statement.index.disallowNull = true;
        }
        return statement;
    }

    NewField New_Field() {
        NewField made;
        made.place = Here();
        made.field.name = Name();
        const FieldTypeRow* type = Peek().kind == TokenKind::Word ? Find_Field_Type(Peek().text) : nullptr;
        if (type == nullptr) Fail();
        ++at_;
        made.field.type = type->field;
        if (!Has_Size(type->field)) return made;
        made.field.size = kDefaultTextSize;
        if (Take_Sign("(")) {
            made.field.size = Whole_Number();
            if (made.field.size < 1 || made.field.size > kDefaultTextSize) Fail(at_ - 1);
            Need_Sign(")");
        }
        return made;
    }

    // Tables

    std::vector<TableTreePtr> Tables() {
        std::vector<TableTreePtr> tables;
        do {
            tables.push_back(Join());
        } while (Take_Sign(","));
        return tables;
    }

    TableTreePtr Join() {
        const Deeper deeper(*this);
        TableTreePtr left = Table();
        for (;;) {
            const TableTree::Kind kind = At_Word("INNER")   ? TableTree::Kind::Inner
                                         : At_Word("LEFT")  ? TableTree::Kind::Left
                                         : At_Word("RIGHT") ? TableTree::Kind::Right
                                                            : TableTree::Kind::Table;
            if (kind == TableTree::Kind::Table) return left;
            auto join = std::make_unique<TableTree>();
            join->kind = kind;
            join->place = Here();
            ++at_;
            Need_Word("JOIN");
            join->left = std::move(left);
            join->right = Table();
            Need_Word("ON");
            join->on = Expression(Level::Or);
            join->depth = 1 + std::max(join->left->depth, join->right->depth);
            if (join->depth > kDeepestTree) Too_Complex(join->place);
            left = std::move(join);
        }
    }

    TableTreePtr Table() {
        if (Take_Sign("(")) {
            TableTreePtr inner = Join();
            Need_Sign(")");
            return inner;
        }
        auto table = std::make_unique<TableTree>();
        table->place = Here();
        table->name = Name();
        if (Take_Word("AS") || At_Name()) table->alias = Name();
        return table;
    }

    // Expressions

    ExprPtr Expression(Level least) {
        const Deeper deeper(*this);
        ExprPtr left = Prefixed();
        for (;;) {
            if (ExprPtr more = Continued(left, least)) {
                left = std::move(more);
            } else {
                return left;
            }
        }
    }

    ExprPtr Prefixed() {
        const Place place = Here();
        if (Take_Word("NOT")) return Node(ExprKind::Not, place, Expression(Level::Not));
        if (Take_Sign("-")) return Node(ExprKind::Negate, place, Expression(Level::Negate));
        if (Take_Sign("+")) return Expression(Level::Negate);
        return Primary();
    }

    // The expression that `left` begins, one operator further; nothing where what follows binds less than `least`.
    ExprPtr Continued(ExprPtr& left, Level least) {
        const Place place = Here();
        if (least <= Level::Or && Take_Word("OR")) {
            return Node(ExprKind::Or, place, std::move(left), Expression(Level::And));
        }
        if (least <= Level::And && Take_Word("AND")) {
            return Node(ExprKind::And, place, std::move(left), Expression(Level::Not));
        }
        if (least <= Level::Compare) {
            if (ExprPtr test = Test(left)) return test;
        }
        const Token& token = Peek();
        if (token.kind != TokenKind::Sign && token.kind != TokenKind::Word) return nullptr;
        for (const BinaryRow& row : kBinary) {
            if (row.level < least || !Is_Keyword(token.text, row.sign)) continue;
            ++at_;
            ExprPtr node = Node(ExprKind::Binary, place, std::move(left), Expression(Above(row.level)));
            node->op = row.op;
            return node;
        }
        return nullptr;
    }

    // [Not] Between, In, Like; Is [Not] Null.
    ExprPtr Test(ExprPtr& left) {
        const Place place = Here();
        if (Take_Word("IS")) {
            const bool negated = Take_Word("NOT");
            Need_Word("NULL");
            ExprPtr node = Node(ExprKind::IsNull, place, std::move(left));
            node->negated = negated;
            return node;
        }
        const std::size_t word = At_Word("NOT") ? 1 : 0;
        ExprPtr node;
        if (Is_Word(word, "BETWEEN")) {
            at_ += word + 1;
            ExprPtr low = Expression(Level::Join);
            Need_Word("AND");
            node = Node(ExprKind::Between, place, std::move(left), std::move(low), Expression(Level::Join));
        } else if (Is_Word(word, "LIKE")) {
            at_ += word + 1;
            node = Node(ExprKind::Like, place, std::move(left), Expression(Level::Join));
        } else if (Is_Word(word, "IN")) {
            at_ += word + 1;
            node = Node(ExprKind::In, place, std::move(left));
            Need_Sign("(");
            do {
                Add_Argument(*node, Expression(Level::Or));
            } while (Take_Sign(","));
            Need_Sign(")");
        } else {
            return nullptr;
        }
        node->negated = word == 1;
        return node;
    }

    ExprPtr Primary() {
        const Token& token = Peek();
        const Place place = Here();
        switch (token.kind) {
            case TokenKind::Number:
            case TokenKind::Text:
            case TokenKind::Date:
                return Lifted();
            case TokenKind::Sign: {
                if (!Take_Sign("(")) Fail();
                ExprPtr inner = Expression(Level::Or);
                Need_Sign(")");
                return inner;
            }
            case TokenKind::Word:
                if (Is_Sign(1, "(") && (!Is_Reserved(token.text) || At_Word("LEFT") || At_Word("RIGHT"))) return Call();
                if (Take_Word("NULL")) return Node(ExprKind::NullWord, place);
                if (Take_Word("TRUE")) return Node(ExprKind::True, place);
                if (Take_Word("FALSE")) return Node(ExprKind::False, place);
                break;
            default:
                break;
        }
        ExprPtr field = Node(ExprKind::Field, place);
        const FieldName name = Field_Name();
        field->table = name.table;
        field->name = name.name;
        return field;
    }

    ExprPtr Lifted() {
        if (!lifted_[at_]) Fail();
        ExprPtr literal = Node(ExprKind::Literal, Here());
        literal->literal = Literal_Of(Peek(), text_);
        literal->index = literals_++;
        ++at_;
        return literal;
    }

    ExprPtr Call() {
        ExprPtr call = Node(ExprKind::Call, Here());
        call->name = Peek().text;
        at_ += 2;
        if (Take_Sign(")")) return call;
        if (Is_Sign(0, "*") && Is_Sign(1, ")")) {
            Add_Argument(*call, Node(ExprKind::Star, Here()));
            at_ += 2;
            return call;
        }
        do {
            Add_Argument(*call, Expression(Level::Or));
        } while (Take_Sign(","));
        Need_Sign(")");
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
        if (node.depth > kDeepestTree) Too_Complex(node.place);
        node.args.push_back(std::move(argument));
    }

    // Names and tokens

    bool At_Name() const {
        return Peek().kind == TokenKind::Name || (Peek().kind == TokenKind::Word && !Is_Reserved(Peek().text));
    }

    std::string Name() {
        if (!At_Name()) Fail();
        return std::string(tokens_[at_++].text);
    }

    FieldName Field_Name() {
        FieldName field;
        field.place = Here();
        field.name = Name();
        if (!Take_Sign(".")) return field;
        field.table = std::move(field.name);
        if (Peek().kind != TokenKind::Word && Peek().kind != TokenKind::Name) Fail();
        field.name = tokens_[at_++].text;
        return field;
    }

    int Whole_Number() {
        const std::string_view digits = Peek().text;
        int number = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (Peek().kind != TokenKind::Number || error != std::errc{} || end != digits.data() + digits.size()) Fail();
        ++at_;
        return number;
    }

    const Token& Peek(std::size_t ahead = 0) const { return tokens_[std::min(at_ + ahead, tokens_.size() - 1)]; }
    Place Here() const { return {Peek().offset}; }
    bool Is_Word(std::size_t ahead, std::string_view word) const {
        return Peek(ahead).kind == TokenKind::Word && Is_Keyword(Peek(ahead).text, word);
    }
    bool Is_Sign(std::size_t ahead, std::string_view sign) const {
        return Peek(ahead).kind == TokenKind::Sign && Peek(ahead).text == sign;
    }
    bool At_Word(std::string_view word) const { return Is_Word(0, word); }
    bool Take_Word(std::string_view word) {
        const bool there = At_Word(word);
        if (there) ++at_;
        return there;
    }
    bool Take_Sign(std::string_view sign) {
        const bool there = Is_Sign(0, sign);
        if (there) ++at_;
        return there;
    }
    void Need_Word(std::string_view word) {
        if (!Take_Word(word)) Fail();
    }
    void Need_Sign(std::string_view sign) {
        if (!Take_Sign(sign)) Fail();
    }

    [[noreturn]] void Fail() const { Fail(at_); }
    [[noreturn]] void Fail(std::size_t at) const {
        const Token& token = tokens_[at];
        throw DbError(DbErrorCode::SyntaxError, text_.substr(token.offset, token.end - token.offset), text_,
                      token.offset);
    }
    [[noreturn]] void Too_Complex(Place place) const {
        throw DbError(DbErrorCode::TooComplex, {}, text_, place.offset);
    }

    // Counts how deep the parser has gone into itself.
    struct Deeper {
        explicit Deeper(Parser& parser) : parser_(parser) {
            if (++parser_.depth_ > kDeepestTree) parser_.Too_Complex(parser_.Here());
        }
        ~Deeper() { --parser_.depth_; }
        Deeper(const Deeper&) = delete;
        Deeper& operator=(const Deeper&) = delete;
        Parser& parser_;
    };

    std::string_view text_;
    std::vector<Token> tokens_;
    std::vector<bool> lifted_;
    std::size_t at_ = 0;
    int literals_;
    int depth_ = 0;
};

}  // namespace

StatementTree Parse_Statement(std::string_view statement) {
    return Parser(statement, 0).Whole_Statement();
}

ExprPtr Parse_Criterion(std::string_view criterion, int firstLiteral) {
    return Parser(criterion, firstLiteral).Whole_Criterion();
}

bool Is_Reserved(std::string_view word) {
    return std::any_of(std::begin(kReservedWords), std::end(kReservedWords),
                       [&](std::string_view reserved) { return Is_Keyword(word, reserved); });
}

}  // namespace tallmar::sql
