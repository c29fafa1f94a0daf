#include "sql/sql_writer.h"

#include <algorithm>

#include "common/db_error.h"

namespace tallmar::sql {

namespace {

constexpr std::string_view kCollate = " COLLATE TEXT1252";
constexpr std::string_view kSqliteOps[kOpCount] = {"+",  "-", "*",  "/", "",   "",  "",
                                                   "||", "=", "<>", "<", "<=", ">", ">="};

struct CallForm {
    Form form;
    std::string_view name;
};
constexpr CallForm kCallForms[] = {
    {Form::Product, "t_product("}, {Form::Quotient, "t_quotient("}, {Form::WholeQuotient, "t_whole_quotient("},
    {Form::Rest, "t_rest("},       {Form::Power, "t_power("},
};

bool Is_Compound(const BoundJoin& join) {
    return join.kind != TableTree::Kind::Table;
}

bool All_Inner(const BoundJoin& join) {
    return !Is_Compound(join) ||
           (join.kind == TableTree::Kind::Inner && All_Inner(*join.left) && All_Inner(*join.right));
}

constexpr TableTree::Kind Swapped(TableTree::Kind kind) {
    return kind == TableTree::Kind::Left    ? TableTree::Kind::Right
           : kind == TableTree::Kind::Right ? TableTree::Kind::Left
                                            : kind;
}

constexpr std::string_view Join_Words(TableTree::Kind kind) {
    return kind == TableTree::Kind::Left ? " LEFT JOIN " : kind == TableTree::Kind::Right ? " RIGHT JOIN " : " JOIN ";
}

// A right join is written as one only over a join: of two tables it is the left join the other way round.
bool Writes_Right_Join(const BoundJoin& join) {
    if (!Is_Compound(join)) return false;
    const bool leftCompound = Is_Compound(*join.left), rightCompound = Is_Compound(*join.right);
    const bool here =
        (join.kind == TableTree::Kind::Right && leftCompound) || (join.kind == TableTree::Kind::Left && rightCompound);
    return here || Writes_Right_Join(*join.left) || Writes_Right_Join(*join.right);
}

// An operand that goes on in the chain of its parent: of amounts, or of Doubles.
bool Continues(const Bound& operand, const Bound& parent) {
    const Type chain = parent.form == Form::Amount ? Type::Currency : Type::Double;
    return parent.form != Form::Long && operand.type == chain;
}

[[noreturn]] void Too_Complex() {
    throw DbError(DbErrorCode::TooComplex);
}

}  // namespace

void SqlWriter::Name(std::string_view name) {
    text_.sql += Quoted_Name(name);
}

void SqlWriter::Table(const BoundTable& table, int index) {
    Name(table.shape->name);
    *this << " AS t" << std::to_string(index);
}

void SqlWriter::Rowid(int table) {
    *this << "t" << std::to_string(table) << ".rowid";
}

void SqlWriter::Parameter(Param param) {
    const std::uint64_t key = static_cast<std::uint64_t>(param.index) << 16 |
                              static_cast<std::uint64_t>(param.from) << 8 | static_cast<std::uint64_t>(param.rep);
    const auto [place, isNew] = places_.emplace(key, text_.params.size() + 1);
    if (isNew) text_.params.push_back(param);
    *this << "?" << std::to_string(place->second);
}

void SqlWriter::Value(const Bound& bound, bool inChain) {
    const auto& args = bound.args;
    const std::string_view collate = bound.form == Form::TextTest ? kCollate : "";
    const std::string_view unless = bound.negated ? " NOT" : "";
    switch (bound.kind) {
        case BoundKind::Literal:
            Parameter({Param::From::Literal, bound.index, Rep_Of(bound.type)});
            return;
        case BoundKind::NullWord:
            *this << "NULL";
            return;
        // Written as sums: a bare number in GROUP BY or ORDER BY would be the number of a column.
        case BoundKind::True:
            *this << "(0-1)";
            return;
        case BoundKind::False:
            *this << "(0+0)";
            return;
        case BoundKind::Star:
            *this << "*";
            return;
        case BoundKind::Column:
            *this << "t" << std::to_string(bound.index) << ".";
            Name(bound.field->name);
            return;
        case BoundKind::Negate:
        case BoundKind::Binary:
            Binary(bound, inChain);
            return;
        case BoundKind::Cast:
            // The conversion of a Double to Currency finds an overflow by itself.
            Around(Cast_Sql(args[0]->type, bound.type), *args[0],
                   args[0]->type == Type::Double && bound.type == Type::Currency);
            return;
        case BoundKind::Check:
            Around(bound.sql, *args[0], false);
            return;
        case BoundKind::Not:
            *this << "(NOT ";
            Value(*args[0]);
            break;
        case BoundKind::And:
        case BoundKind::Or:
            *this << "(";
            Value(*args[0]);
            *this << (bound.kind == BoundKind::And ? " AND " : " OR ");
            Value(*args[1]);
            break;
        case BoundKind::Between:
            *this << "(";
            Value(*args[0]);
            *this << collate << unless << " BETWEEN ";
            Value(*args[1]);
            *this << " AND ";
            Value(*args[2]);
            break;
        case BoundKind::In:
            *this << "(";
            Value(*args[0]);
            *this << collate << unless << " IN (";
            List(bound, 1);
            *this << ")";
            break;
        case BoundKind::Like:
            *this << (bound.negated ? "(NOT t_like(" : "(t_like(");
            List(bound, 0);
            *this << ")";
            break;
        case BoundKind::IsNull:
            *this << "(";
            Value(*args[0]);
            *this << " IS" << unless << " NULL";
            break;
        case BoundKind::Case:
            *this << "(CASE WHEN ";
            Value(*args[0]);
            *this << " THEN ";
            Value(*args[1], inChain);
            *this << " ELSE ";
            Value(*args[2], inChain);
            *this << " END";
            break;
        case BoundKind::Call:
            Call(bound);
            return;
    }
    *this << ")";
}

void SqlWriter::Binary(const Bound& bound, bool inChain) {
    const std::string_view op = kSqliteOps[static_cast<std::size_t>(bound.op)];
    for (const CallForm& row : kCallForms) {
        if (row.form != bound.form) continue;
        *this << row.name;
        List(bound, 0);
        *this << ")";
        return;
    }
    switch (bound.form) {
        case Form::Amount:
        case Form::Real:
        case Form::Long:
            return Checked(bound, inChain);
        case Form::JoinedAll:
            *this << "(";
            Joined(bound);
            *this << ")";
            return;
        default:
            break;
    }
    *this << "(";
    if (bound.kind == BoundKind::Negate) {
        *this << "-";
        Value(*bound.args[0]);
    } else {
        Value(*bound.args[0]);
        *this << (bound.form == Form::TextTest ? kCollate : "") << (bound.form == Form::Joined ? "||" : op);
        Value(*bound.args[1]);
    }
    *this << ")";
}

// a & b & c in one row: each level of parentheses takes room in SQLite's parser.
void SqlWriter::Joined(const Bound& bound) {
    for (const BoundPtr& part : bound.args) {
        if (part != bound.args.front()) *this << "||";
        if (part->kind == BoundKind::Binary && part->form == Form::JoinedAll) {
            Joined(*part);
            continue;
        }
        *this << "ifnull(";
        Value(*part);
        *this << ",'')";
    }
}

// A sum of amounts that overflows becomes a REAL in SQLite and stays one under further sums, and a Double that
// overflows stays infinite: one check at the end of the chain finds it. Whole numbers and dates are checked step by
// step.
void SqlWriter::Checked(const Bound& bound, bool inChain) {
    const bool isDate = bound.type == Type::Date;
    const bool links = bound.form != Form::Long && !isDate;
    const bool first = Continues(*bound.args[0], bound);
    *this << (links && inChain             ? "("
              : isDate                     ? "t_serial("
              : bound.form == Form::Amount ? "t_amount("
              : bound.form == Form::Real   ? "t_real("
                                           : "t_long(");
    if (bound.kind == BoundKind::Negate) {
        *this << "-";
        Value(*bound.args[0], first);
    } else {
        Value(*bound.args[0], first);
        *this << kSqliteOps[static_cast<std::size_t>(bound.op)];
        Value(*bound.args[1], Continues(*bound.args[1], bound));
    }
    *this << ")";
}

void SqlWriter::Call(const Bound& bound) {
    const std::string_view sql = bound.functionForm->sql;
    std::size_t from = 0;
    for (std::size_t mark = sql.find('$'); mark != std::string_view::npos; mark = sql.find('$', from)) {
        *this << sql.substr(from, mark - from);
        const char what = sql[mark + 1];
        from = mark + 2;
        if (what == '*') {
            List(bound, 0);
        } else if (what == 'T') {
            *this << std::to_string(Index(bound.args[0]->type));
        } else {
            Value(*bound.args[static_cast<std::size_t>(what - '1')], bound.functionForm->finds);
        }
    }
    *this << sql.substr(from);
}

void SqlWriter::Around(std::string_view sql, const Bound& value, bool inChain) {
    const std::size_t mark = sql.find('$');
    *this << sql.substr(0, mark);
    Value(value, inChain);
    *this << sql.substr(mark + 1);
}

void SqlWriter::List(const Bound& bound, std::size_t first) {
    for (std::size_t i = first; i < bound.args.size(); ++i) {
        if (i > first) *this << ",";
        Value(*bound.args[i]);
    }
}

void SqlWriter::Term(const Bound& bound) {
    Value(bound);
    if (bound.type == Type::Text) *this << kCollate;
}

void SqlWriter::From(const BoundSelect& select) {
    std::vector<const BoundJoin*> joins;
    for (const BoundJoinPtr& join : select.from) joins.push_back(join.get());
    // What follows a right join would be taken into it: it must come first, and there can be but one.
    const auto rest = std::stable_partition(joins.begin(), joins.end(),
                                            [](const BoundJoin* join) { return Writes_Right_Join(*join); });
    if (rest - joins.begin() > 1) Too_Complex();
    *this << " FROM ";
    for (std::size_t i = 0; i < joins.size(); ++i) {
        if (i > 0) *this << " JOIN ";
        Join(select, *joins[i]);
    }
}

// SQLite reads joins from left to right: a join in parentheses comes first, with its side changed where needed.
void SqlWriter::Join(const BoundSelect& select, const BoundJoin& join) {
    if (!Is_Compound(join)) {
        Table(select.tables[static_cast<std::size_t>(join.table)], join.table);
        return;
    }
    const BoundJoin* left = join.left.get();
    const BoundJoin* right = join.right.get();
    TableTree::Kind kind = join.kind;
    const bool rightFirst = Is_Compound(*right) && (!Is_Compound(*left) || All_Inner(*left));
    const bool plainRight = kind == TableTree::Kind::Right && !Is_Compound(*left) && !Is_Compound(*right);
    if (rightFirst || plainRight) {
        std::swap(left, right);
        kind = Swapped(kind);
    }
    if (Is_Compound(*right) && (kind != TableTree::Kind::Inner || !All_Inner(*right))) Too_Complex();
    Join(select, *left);
    *this << Join_Words(kind);
    Inner_Leaves(select, *right);
    *this << " ON ";
    Inner_Conditions(*right);
    Value(*join.on);
}

void SqlWriter::Inner_Leaves(const BoundSelect& select, const BoundJoin& join) {
    if (!Is_Compound(join)) return Join(select, join);
    Inner_Leaves(select, *join.left);
    *this << " JOIN ";
    Inner_Leaves(select, *join.right);
}

void SqlWriter::Inner_Conditions(const BoundJoin& join) {
    if (!Is_Compound(join)) return;
    Inner_Conditions(*join.left);
    Inner_Conditions(*join.right);
    Value(*join.on);
    *this << " AND ";
}

}  // namespace tallmar::sql
