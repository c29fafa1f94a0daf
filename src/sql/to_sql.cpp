#include "sql/to_sql.h"

#include "common/sql_text.h"
#include "sql/expression_parser.h"
#include "sql/keywords.h"
#include "sql/lexer.h"

namespace tallmar::sql {

namespace {

std::string Name_Text(std::string_view name) {
    bool plain = !name.empty() && Is_Word_Start(name.front()) && !Is_Reserved(name);
    for (const char c : name) plain = plain && Is_Word_Part(c);
    return plain ? std::string(name) : "[" + std::string(name) + "]";
}

std::string Qualified(std::string_view table, std::string_view name) {
    return table.empty() ? Name_Text(name) : Name_Text(table) + "." + Name_Text(name);
}

// Written so that it is read as the same kind again: a Double keeps an exponent, a Decimal its point.
std::string Literal_Text(const Literal& literal) {
    std::string text;
    Append_Sql(text, literal.value);
    if (literal.kind == Literal::Kind::Double) return text + "E0";
    if (literal.kind == Literal::Kind::Decimal && text.find('.') == std::string::npos) text += ".0";
    return text;
}

template <class List, class Write>
std::string Listed(const List& list, Write write) {
    std::string text;
    for (const auto& item : list) {
        if (!text.empty()) text += ", ";
        text += write(item);
    }
    return text;
}

std::string Write(const ExprPtr& expr) {
    return To_Sql(*expr);
}

// What an operator builds is put in parentheses when it is an operand.
std::string Operand(const ExprPtr& expr) {
    switch (expr->kind) {
        case ExprKind::Literal:
        case ExprKind::NullWord:
        case ExprKind::True:
        case ExprKind::False:
        case ExprKind::Field:
        case ExprKind::Call:
            return To_Sql(*expr);
        default:
            return "(" + To_Sql(*expr) + ")";
    }
}

std::string Table_Text(const TableTree& table) {
    if (table.kind == TableTree::Kind::Table) {
        return Name_Text(table.name) + (table.alias.empty() ? "" : " AS " + Name_Text(table.alias));
    }
    const auto side = [](const TableTree& part) {
        return part.kind == TableTree::Kind::Table ? Table_Text(part) : "(" + Table_Text(part) + ")";
    };
    const std::string_view word = table.kind == TableTree::Kind::Inner  ? " INNER"
                                  : table.kind == TableTree::Kind::Left ? " LEFT"
                                                                        : " RIGHT";
    return Sql(side(*table.left), word, " JOIN ", side(*table.right), " ON ", To_Sql(*table.on));
}

std::string Tables_Text(const std::vector<TableTreePtr>& tables) {
    return Listed(tables, [](const TableTreePtr& table) { return Table_Text(*table); });
}

std::string Where_Text(const ExprPtr& where) {
    return where ? " WHERE " + To_Sql(*where) : "";
}

std::string Item_Text(const SelectItem& item) {
    if (item.kind == SelectItem::Kind::All) return "*";
    if (item.kind == SelectItem::Kind::AllOf) return Name_Text(item.name) + ".*";
    return To_Sql(*item.expr) + (item.name.empty() ? "" : " AS " + Name_Text(item.name));
}

std::string Select_Text(const SelectTree& select) {
    std::string text = "SELECT ";
    if (select.distinct) text += "DISTINCT ";
    if (select.top >= 0) text += "TOP " + std::to_string(select.top) + " ";
    text += Listed(select.items, Item_Text);
    if (!select.into.empty()) text += " INTO " + Name_Text(select.into);
    text += " FROM " + Tables_Text(select.from) + Where_Text(select.where);
    if (!select.groupBy.empty()) text += " GROUP BY " + Listed(select.groupBy, Write);
    if (!select.orderBy.empty()) {
        text += " ORDER BY " + Listed(select.orderBy, [](const OrderItem& item) {
                    return To_Sql(*item.expr) + (item.descending ? " DESC" : "");
                });
    }
    return text;
}

std::string Field_Text(const FieldName& field) {
    return Qualified(field.table, field.name);
}

std::string New_Field_Text(const NewField& made) {
    std::string text = Sql(Name_Text(made.field.name), " ", Type_Name(made.field.type));
    if (Has_Size(made.field.type)) text += "(" + std::to_string(made.field.size) + ")";
    return text;
}

}  // namespace

std::string To_Sql(const Expr& expr) {
    const auto& args = expr.args;
    const std::string_view unless = expr.negated ? " NOT" : "";
    switch (expr.kind) {
        case ExprKind::Literal:
            return Literal_Text(expr.literal);
        case ExprKind::NullWord:
            return "Null";
        case ExprKind::True:
            return "True";
        case ExprKind::False:
            return "False";
        case ExprKind::Star:
            return "*";
        case ExprKind::Field:
            return Qualified(expr.table, expr.name);
        case ExprKind::Negate:
            return "-" + Operand(args[0]);
        case ExprKind::Not:
            return "NOT " + Operand(args[0]);
        case ExprKind::And:
            return Operand(args[0]) + " AND " + Operand(args[1]);
        case ExprKind::Or:
            return Operand(args[0]) + " OR " + Operand(args[1]);
        case ExprKind::Binary:
            return Sql(Operand(args[0]), " ", kOpSigns[static_cast<std::size_t>(expr.op)], " ", Operand(args[1]));
        case ExprKind::Between:
            return Sql(Operand(args[0]), unless, " BETWEEN ", Operand(args[1]), " AND ", Operand(args[2]));
        case ExprKind::Like:
            return Sql(Operand(args[0]), unless, " LIKE ", Operand(args[1]));
        case ExprKind::IsNull:
            return Sql(Operand(args[0]), " IS", unless, " NULL");
        case ExprKind::Call:
            return expr.name + "(" + Listed(args, Write) + ")";
        case ExprKind::In:
            break;
    }
    std::string items;
    for (std::size_t i = 1; i < args.size(); ++i) items += (i > 1 ? ", " : "") + To_Sql(*args[i]);
    return Sql(Operand(args[0]), unless, " IN (", items, ")");
}

std::string To_Sql(const StatementTree& statement) {
    const std::string name = Name_Text(statement.name);
    const std::string fields = statement.named ? " (" + Listed(statement.fields, Field_Text) + ")" : "";
    switch (statement.kind) {
        case StatementTree::Kind::Select:
            return Select_Text(statement.select);
        case StatementTree::Kind::Insert:
            return Sql("INSERT INTO ", name, fields, " VALUES (", Listed(statement.values, Write), ")");
        case StatementTree::Kind::InsertSelect:
            return Sql("INSERT INTO ", name, fields, " ", Select_Text(statement.select));
        case StatementTree::Kind::Update:
            return Sql(
                "UPDATE ", Tables_Text(statement.select.from), " SET ",
                Listed(statement.assignments,
                       [](const Assignment& each) { return Field_Text(each.target) + " = " + To_Sql(*each.value); }),
                Where_Text(statement.select.where));
        case StatementTree::Kind::Delete:
            return Sql("DELETE * FROM ", name, Where_Text(statement.select.where));
        case StatementTree::Kind::DropTable:
            return "DROP TABLE " + name;
        case StatementTree::Kind::CreateTable:
            return Sql("CREATE TABLE ", name, " (", Listed(statement.newFields, New_Field_Text), ")");
        case StatementTree::Kind::CreateIndex:
            break;
    }
    return Sql("CREATE ", statement.index.unique ? "UNIQUE " : "", "INDEX ", Name_Text(statement.index.name), " ON ",
               name, " (", Listed(statement.fields, Field_Text), ")",
               statement.index.disallowNull ? " WITH DISALLOW NULL" : "");
}

}  // namespace tallmar::sql
