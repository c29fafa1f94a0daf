#include "sql/expression_binder.h"

#include <algorithm>

#include "common/db_error.h"
#include "common/text.h"

namespace tallmar::sql {

namespace {

[[noreturn]] void Fail(DbErrorCode code, std::string_view argument, Place place, const Scope& scope) {
    throw DbError(code, argument, scope.text, place.offset);
}

template <class... Args>
BoundPtr Node(BoundKind kind, Type type, Place place, Args... args) {
    auto node = std::make_unique<Bound>();
    node->kind = kind;
    node->type = type;
    node->place = place;
    (node->args.push_back(std::move(args)), ...);
    return node;
}

// Casts

// Literals that are bound as another type than their own: none of these can fail. What can is left to SQL, since it
// must fail only where the value is asked for.
struct LiteralCast {
    Type from, to;
};
constexpr LiteralCast kLiteralCasts[] = {
    {Type::Whole, Type::Currency}, {Type::Whole, Type::Double},     {Type::Whole, Type::Text},
    {Type::Whole, Type::Boolean},  {Type::Decimal, Type::Currency}, {Type::Decimal, Type::Double},
    {Type::Double, Type::Text},    {Type::Date, Type::Double},      {Type::Date, Type::Text},
};

bool Is_Literal_Cast(Type from, Type to) {
    return std::any_of(std::begin(kLiteralCasts), std::end(kLiteralCasts),
                       [&](const LiteralCast& row) { return row.from == from && row.to == to; });
}

// A cast that goes down into the literals of `bound` instead of around it.
bool Takes_Cast(const Bound& bound, Type to) {
    if (bound.type == Type::Decimal) return true;
    if (bound.kind == BoundKind::Literal) return Is_Literal_Cast(bound.type, to);
    return bound.kind == BoundKind::Negate && bound.args[0]->kind == BoundKind::Literal && bound.type == Type::Whole &&
           (to == Type::Currency || to == Type::Double);
}

// Literals are bound as what is wanted, also under a sign or in the branches of an IIF; all else is cast by SQL.
BoundPtr Cast_To(BoundPtr bound, Type to, const Scope& scope) {
    if (to == Type::None || bound->type == to) return bound;
    if (bound->type == Type::None) {
        bound->type = to;
        return bound;
    }
    if (bound->type == Type::Decimal && to != Type::Currency && to != Type::Double) {
        return Cast_To(Cast_To(std::move(bound), Type::Double, scope), to, scope);
    }
    if (Takes_Cast(*bound, to)) {
        const std::size_t first = bound->kind == BoundKind::Case ? 1 : 0;
        for (std::size_t i = first; i < bound->args.size(); ++i) {
            bound->args[i] = Cast_To(std::move(bound->args[i]), to, scope);
        }
        bound->type = to;
        return bound;
    }
    if (Cast_Sql(bound->type, to).empty()) Fail(DbErrorCode::TypeMismatch, Name_Of(bound->type), bound->place, scope);
    const Place place = bound->place;
    return Node(BoundKind::Cast, to, place, std::move(bound));
}

BoundPtr For_Argument(BoundPtr bound, ArgRule rule, const Scope& scope) {
    const Type wanted = Argument_Type(rule, bound->type);
    return Cast_To(std::move(bound), wanted, scope);
}

// An operand of the matrices: a Condition among values is a Boolean.
BoundPtr As_Operand(BoundPtr bound, const Scope& scope) {
    return bound->type == Type::Condition ? Cast_To(std::move(bound), Type::Boolean, scope) : std::move(bound);
}

// Expressions

BoundPtr Bind(const Expr& expr, const Scope& scope);

BoundPtr Bind_Operand(const Expr& expr, const Scope& scope) {
    return As_Operand(Bind(expr, scope), scope);
}

BoundPtr Bind_Literal(const Expr& expr) {
    static constexpr struct {
        Literal::Kind kind;
        Type type;
    } kLiteralTypes[] = {
        {Literal::Kind::Integer, Type::Whole}, {Literal::Kind::Decimal, Type::Decimal},
        {Literal::Kind::Double, Type::Double}, {Literal::Kind::Text, Type::Text},
        {Literal::Kind::Date, Type::Date},
    };
    const auto* row = std::find_if(std::begin(kLiteralTypes), std::end(kLiteralTypes) - 1,
                                   [&](const auto& each) { return each.kind == expr.literal.kind; });
    BoundPtr literal = Node(BoundKind::Literal, row->type, expr.place);
    literal->index = expr.index;
    return literal;
}

BoundPtr Bind_Field(const Expr& expr, const Scope& scope) {
    if (expr.table.empty()) {
        for (const SelectItem& item : scope.aliases) {
            if (item.name.empty() || item.kind != SelectItem::Kind::Expr || !Same_Text(item.name, expr.name)) continue;
            Scope within = scope;
            within.aliases = {};
            within.text = scope.aliasText;
            return Bind(*item.expr, within);
        }
    }
    const FieldPlace at = Resolve(expr.table, expr.name, expr.place, scope);
    const FieldDef& field =
        scope.tables[static_cast<std::size_t>(at.table)].shape->fields[static_cast<std::size_t>(at.field)];
    return Bound_Column(static_cast<int>(scope.firstTable) + at.table, field, expr.place);
}

BoundPtr Bind_Negate(const Expr& expr, const Scope& scope) {
    BoundPtr operand = Bind_Operand(*expr.args[0], scope);
    const Cell& cell = Negated(operand->type);
    const bool literal = operand->kind == BoundKind::Literal;
    BoundPtr node = Node(BoundKind::Negate, cell.result, expr.place, Cast_To(std::move(operand), cell.left, scope));
    node->form = literal ? Form::Plain : cell.form;  // a literal is far from the lowest number
    return node;
}

BoundPtr Combine(Op op, BoundPtr left, BoundPtr right, Place place, const Scope& scope) {
    const Cell& cell = Arithmetic(op, left->type, right->type);
    BoundPtr node = Node(BoundKind::Binary, cell.result, place, Cast_To(std::move(left), cell.left, scope),
                         Cast_To(std::move(right), cell.right, scope));
    node->op = op;
    node->form = cell.form;
    return node;
}

BoundPtr Bind_Binary(const Expr& expr, const Scope& scope) {
    BoundPtr left = Bind_Operand(*expr.args[0], scope);
    return Combine(expr.op, std::move(left), Bind_Operand(*expr.args[1], scope), expr.place, scope);
}

BoundPtr Negate_If(bool negated, BoundPtr condition) {
    if (!negated) return condition;
    const Place place = condition->place;
    return Node(BoundKind::Not, Type::Condition, place, std::move(condition));
}

// Where both bounds meet the value in the same way it is one BETWEEN, which an index serves; else two comparisons.
BoundPtr Bind_Between(const Expr& expr, const Scope& scope) {
    const auto operand = [&](std::size_t i) { return Bind_Operand(*expr.args[i], scope); };
    BoundPtr value = operand(0), low = operand(1), high = operand(2);
    const Cell& atLow = Arithmetic(Op::GreaterEqual, value->type, low->type);
    const Cell& atHigh = Arithmetic(Op::LessEqual, value->type, high->type);
    if (atLow.left == atHigh.left && atLow.form == atHigh.form) {
        BoundPtr node =
            Node(BoundKind::Between, Type::Condition, expr.place, Cast_To(std::move(value), atLow.left, scope),
                 Cast_To(std::move(low), atLow.right, scope), Cast_To(std::move(high), atHigh.right, scope));
        node->form = atLow.form;
        node->negated = expr.negated;
        return node;
    }
    BoundPtr above = Combine(Op::GreaterEqual, std::move(value), std::move(low), expr.place, scope);
    BoundPtr below = Combine(Op::LessEqual, operand(0), std::move(high), expr.place, scope);
    return Negate_If(expr.negated,
                     Node(BoundKind::And, Type::Condition, expr.place, std::move(above), std::move(below)));
}

// The items that meet the value in the same way make one IN; a list of mixed types makes several.
BoundPtr Bind_In(const Expr& expr, const Scope& scope) {
    std::vector<BoundPtr> groups;
    for (std::size_t i = 1; i < expr.args.size(); ++i) {
        BoundPtr item = Bind_Operand(*expr.args[i], scope);
        BoundPtr value = Bind_Operand(*expr.args[0], scope);
        const Cell& cell = Arithmetic(Op::Equal, value->type, item->type);
        item = Cast_To(std::move(item), cell.right, scope);
        value = Cast_To(std::move(value), cell.left, scope);
        const auto same = std::find_if(groups.begin(), groups.end(), [&](const BoundPtr& group) {
            return group->form == cell.form && group->args[0]->type == value->type;
        });
        if (same != groups.end()) {
            (*same)->args.push_back(std::move(item));
            continue;
        }
        groups.push_back(Node(BoundKind::In, Type::Condition, expr.place, std::move(value), std::move(item)));
        groups.back()->form = cell.form;
    }
    BoundPtr whole = std::move(groups.front());
    for (std::size_t i = 1; i < groups.size(); ++i) {
        whole = Node(BoundKind::Or, Type::Condition, expr.place, std::move(whole), std::move(groups[i]));
    }
    return Negate_If(expr.negated, std::move(whole));
}

BoundPtr Bind_Iif(const Expr& expr, const Scope& scope) {
    BoundPtr condition = Bind_Condition(*expr.args[0], scope);
    BoundPtr yes = Bind_Operand(*expr.args[1], scope), no = Bind_Operand(*expr.args[2], scope);
    const Cell& cell = Unified(yes->type, no->type);
    return Node(BoundKind::Case, cell.result, expr.place, std::move(condition),
                Cast_To(std::move(yes), cell.left, scope), Cast_To(std::move(no), cell.right, scope));
}

BoundPtr Bind_Call(const Expr& expr, const Scope& scope) {
    const FunctionRow* function = Find_Function(expr.name, expr.args.size());
    if (function == nullptr) Fail(DbErrorCode::UnknownFunction, expr.name, expr.place, scope);
    const bool star = expr.args.size() == 1 && expr.args[0]->kind == ExprKind::Star;
    if (expr.args.size() < function->least || expr.args.size() > function->most ||
        (star && function->name != "COUNT")) {
        Fail(DbErrorCode::WrongArguments, expr.name, expr.place, scope);
    }
    if (function->kind == FunctionKind::Iif) return Bind_Iif(expr, scope);

    Scope within = scope;
    if (function->kind == FunctionKind::Aggregate) {
        if (!scope.mayAggregate) Fail(DbErrorCode::InvalidOperation, expr.name, expr.place, scope);
        within.mayAggregate = false;
        *scope.aggregated = true;
    }
    BoundPtr call = Node(BoundKind::Call, Type::None, expr.place);
    call->function = function;
    for (std::size_t i = 0; i < expr.args.size(); ++i) {
        call->args.push_back(star ? Node(BoundKind::Star, Type::Whole, expr.place)
                                  : For_Argument(Bind(*expr.args[i], within), function->args[i], within));
    }
    const Type first = call->args[0]->type;
    call->functionForm = &Form_For(*function, first);
    call->type = call->functionForm->result == Type::None ? first : call->functionForm->result;
    return call;
}

BoundPtr Bind(const Expr& expr, const Scope& scope) {
    switch (expr.kind) {
        case ExprKind::Literal:
            return Bind_Literal(expr);
        case ExprKind::NullWord:
            return Node(BoundKind::NullWord, Type::None, expr.place);
        case ExprKind::True:
            return Node(BoundKind::True, Type::Boolean, expr.place);
        case ExprKind::False:
            return Node(BoundKind::False, Type::Boolean, expr.place);
        case ExprKind::Field:
            return Bind_Field(expr, scope);
        case ExprKind::Negate:
            return Bind_Negate(expr, scope);
        case ExprKind::Not:
            return Node(BoundKind::Not, Type::Condition, expr.place, Bind_Condition(*expr.args[0], scope));
        case ExprKind::And:
        case ExprKind::Or:
            return Node(expr.kind == ExprKind::And ? BoundKind::And : BoundKind::Or, Type::Condition, expr.place,
                        Bind_Condition(*expr.args[0], scope), Bind_Condition(*expr.args[1], scope));
        case ExprKind::Binary:
            return Bind_Binary(expr, scope);
        case ExprKind::Between:
            return Bind_Between(expr, scope);
        case ExprKind::In:
            return Bind_In(expr, scope);
        case ExprKind::Like: {
            BoundPtr node = Node(BoundKind::Like, Type::Condition, expr.place,
                                 For_Argument(Bind(*expr.args[0], scope), ArgRule::Text, scope),
                                 For_Argument(Bind(*expr.args[1], scope), ArgRule::Text, scope));
            node->negated = expr.negated;
            return node;
        }
        case ExprKind::IsNull: {
            BoundPtr node = Node(BoundKind::IsNull, Type::Condition, expr.place,
                                 For_Argument(Bind(*expr.args[0], scope), ArgRule::Value, scope));
            node->negated = expr.negated;
            return node;
        }
        case ExprKind::Call:
            return Bind_Call(expr, scope);
        case ExprKind::Star:
            break;
    }
    Fail(DbErrorCode::SyntaxError, "*", expr.place, scope);
}

// Fields

// True where the value is a field, unchanged, whose own type promises what `field` asks.
bool Promises(const Bound& value, const FieldDef& field) {
    if (value.kind != BoundKind::Column) return value.kind == BoundKind::NullWord;
    const FieldDef& source = *value.field;
    if (Has_Size(field.type)) return Has_Size(source.type) && source.size <= field.size;
    return source.type == field.type || (field.type == FieldType::Integer && source.type == FieldType::Byte);
}

BoundPtr Check(BoundPtr value, std::string sql) {
    const Type type = value->type;
    const Place place = value->place;
    BoundPtr node = Node(BoundKind::Check, type, place, std::move(value));
    node->sql = std::move(sql);
    return node;
}

std::string Null_Check(const FieldDef& field) {
    return "t_notnull($," + Sql_Text_Literal(field.name) + ")";
}

BoundPtr Checked_For(BoundPtr value, const FieldDef& field, const TableShape& table) {
    const std::string_view check = Row_Of(field.type).check;
    if (!check.empty() && !Promises(*value, field)) {
        const std::string sized = Replace(check, "#", std::to_string(field.size));
        value = Check(std::move(value), Replace(sized, "%", Sql_Text_Literal(field.name)));
    }
    const bool never = value->kind == BoundKind::Literal;
    if (!never && table.Disallows_Null(field.name)) value = Check(std::move(value), Null_Check(field));
    return value;
}

}  // namespace

BoundPtr Bind_Value(const Expr& expr, const Scope& scope) {
    return For_Argument(Bind(expr, scope), ArgRule::Value, scope);
}

BoundPtr Bind_Condition(const Expr& expr, const Scope& scope) {
    return For_Argument(Bind(expr, scope), ArgRule::Condition, scope);
}

BoundPtr Bind_For_Field(const Expr& expr, const FieldDef& field, const TableShape& table, const Scope& scope) {
    return For_Field(Bind(expr, scope), field, table, scope);
}

BoundPtr For_Field(BoundPtr value, const FieldDef& field, const TableShape& table, const Scope& scope) {
    return Checked_For(Cast_To(std::move(value), Type_Of(field.type), scope), field, table);
}

BoundPtr Bound_Column(int table, const FieldDef& field, Place place) {
    BoundPtr column = Node(BoundKind::Column, Type_Of(field.type), place);
    column->index = table;
    column->field = &field;
    return column;
}

BoundPtr Null_For_Field(const FieldDef& field, const TableShape& table) {
    return Checked_For(Node(BoundKind::NullWord, Type_Of(field.type), {}), field, table);
}

FieldPlace Resolve(std::string_view table, std::string_view field, Place place, const Scope& scope) {
    FieldPlace found;
    for (std::size_t i = 0; i < scope.tables.size(); ++i) {
        const BoundTable& each = scope.tables[i];
        if (!table.empty() && !Same_Text(each.name, table)) continue;
        const int position = each.shape->Field_Position(field);
        if (position < 0) continue;
        if (found.table >= 0) Fail(DbErrorCode::AmbiguousField, field, place, scope);
        found = {static_cast<int>(i), position};
    }
    if (found.table < 0) {
        const std::string name = table.empty() ? std::string(field) : std::string(table) + "." + std::string(field);
        Fail(DbErrorCode::UnknownField, name, place, scope);
    }
    return found;
}

bool Same_Bound(const Bound& a, const Bound& b) {
    return a.kind == b.kind && a.type == b.type && a.field == b.field && a.op == b.op && a.form == b.form &&
           a.negated == b.negated && a.function == b.function && a.functionForm == b.functionForm &&
           (a.kind != BoundKind::Column || a.index == b.index) &&
           std::equal(a.args.begin(), a.args.end(), b.args.begin(), b.args.end(),
                      [](const BoundPtr& x, const BoundPtr& y) { return Same_Bound(*x, *y); });
}

std::string Sql_Text_Literal(std::string_view text) {
    return "'" + Replace(text, "'", "''") + "'";
}

}  // namespace tallmar::sql
