#include "sql/tree.h"

#include <algorithm>

#include "common/text.h"

namespace tallmar::sql {

namespace {

bool Same_Table(const TableTree& a, const TableTree& b);

// Both absent, or both there and the same.
template <class T>
bool Same_Part(const std::unique_ptr<T>& a, const std::unique_ptr<T>& b, bool (*same)(const T&, const T&)) {
    return a && b ? same(*a, *b) : !a && !b;
}

template <class List, class Same>
bool Same_List(const List& a, const List& b, Same same) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
}

bool Same_Expr_List(const std::vector<ExprPtr>& a, const std::vector<ExprPtr>& b) {
    return Same_List(a, b, [](const ExprPtr& x, const ExprPtr& y) { return Same_Expr(*x, *y); });
}

bool Same_Table(const TableTree& a, const TableTree& b) {
    return a.kind == b.kind && Same_Text(a.name, b.name) && Same_Text(a.alias, b.alias) &&
           Same_Part(a.left, b.left, Same_Table) && Same_Part(a.right, b.right, Same_Table) &&
           Same_Part(a.on, b.on, Same_Expr);
}

bool Same_Select(const SelectTree& a, const SelectTree& b) {
    return a.distinct == b.distinct && a.top == b.top && Same_Text(a.into, b.into) &&
           Same_List(a.items, b.items,
                     [](const SelectItem& x, const SelectItem& y) {
                         return x.kind == y.kind && Same_Text(x.name, y.name) && Same_Part(x.expr, y.expr, Same_Expr);
                     }) &&
           Same_List(a.from, b.from, [](const TableTreePtr& x, const TableTreePtr& y) { return Same_Table(*x, *y); }) &&
           Same_Part(a.where, b.where, Same_Expr) && Same_Expr_List(a.groupBy, b.groupBy) &&
           Same_List(a.orderBy, b.orderBy, [](const OrderItem& x, const OrderItem& y) {
               return x.descending == y.descending && Same_Expr(*x.expr, *y.expr);
           });
}

bool Same_Field(const FieldName& a, const FieldName& b) {
    return Same_Text(a.table, b.table) && Same_Text(a.name, b.name);
}

}  // namespace

bool Same_Expr(const Expr& a, const Expr& b) {
    return a.kind == b.kind && a.op == b.op && a.negated == b.negated && Same_Text(a.table, b.table) &&
           Same_Text(a.name, b.name) && a.literal.kind == b.literal.kind && a.literal.value == b.literal.value &&
           Same_Expr_List(a.args, b.args);
}

bool Same_Statement(const StatementTree& a, const StatementTree& b) {
    return a.kind == b.kind && Same_Text(a.name, b.name) && Same_Select(a.select, b.select) && a.named == b.named &&
           Same_List(a.fields, b.fields, Same_Field) && Same_Expr_List(a.values, b.values) &&
           Same_List(a.assignments, b.assignments,
                     [](const Assignment& x, const Assignment& y) {
                         return Same_Field(x.target, y.target) && Same_Expr(*x.value, *y.value);
                     }) &&
           Same_List(a.newFields, b.newFields,
                     [](const NewField& x, const NewField& y) { return x.field == y.field; }) &&
           a.index == b.index;
}

}  // namespace tallmar::sql
