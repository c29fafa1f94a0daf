#include "sql/dump.h"

namespace tallmar::sql {

namespace {

struct KindName {
    BoundKind kind;
    std::string_view name;
};
constexpr KindName kKindNames[] = {
    {BoundKind::Literal, "Literal"}, {BoundKind::NullWord, "Null"}, {BoundKind::True, "True"},
    {BoundKind::False, "False"},     {BoundKind::Column, "Column"}, {BoundKind::Negate, "Negate"},
    {BoundKind::Binary, "Binary"},   {BoundKind::Cast, "Cast"},     {BoundKind::Not, "Not"},
    {BoundKind::And, "And"},         {BoundKind::Or, "Or"},         {BoundKind::Between, "Between"},
    {BoundKind::In, "In"},           {BoundKind::Like, "Like"},     {BoundKind::IsNull, "IsNull"},
    {BoundKind::Case, "Case"},       {BoundKind::Call, "Call"},     {BoundKind::Star, "Star"},
    {BoundKind::Check, "Check"},
};

struct FormName {
    Form form;
    std::string_view name;
};
constexpr FormName kFormNames[] = {
    {Form::Amount, "checked amount"},
    {Form::Long, "checked long"},
    {Form::Real, "checked double"},
    {Form::Product, "four places, halves to even"},
    {Form::Quotient, "quotient"},
    {Form::WholeQuotient, "whole quotient"},
    {Form::Rest, "rest"},
    {Form::Power, "power"},
    {Form::Joined, "joined"},
    {Form::JoinedAll, "joined, Null as nothing"},
    {Form::TextTest, "without regard to case"},
};

template <class Rows, class Key>
std::string_view Name_In(const Rows& rows, Key key, Key std::remove_cvref_t<decltype(rows[0])>::*member) {
    for (const auto& row : rows) {
        if (row.*member == key) return row.name;
    }
    return {};
}

// What is particular to the node.
std::string Detail(const Bound& bound) {
    switch (bound.kind) {
        case BoundKind::Literal:
            return " ?" + std::to_string(bound.index);
        case BoundKind::Column:
            return " t" + std::to_string(bound.index) + "." + bound.field->name;
        case BoundKind::Binary:
            return " " + std::string(kOpSigns[static_cast<std::size_t>(bound.op)]);
        case BoundKind::Call:
            return " " + std::string(bound.function->name);
        case BoundKind::Check:
            return " " + bound.sql;
        default:
            return bound.negated ? " not" : "";
    }
}

void Write(std::string& text, const Bound& bound, std::size_t depth) {
    text.append(depth * 2, ' ');
    text += Name_In(kKindNames, bound.kind, &KindName::kind);
    text += Detail(bound);
    text += ": ";
    text += Name_Of(bound.type);
    const std::string_view form = Name_In(kFormNames, bound.form, &FormName::form);
    if (!form.empty()) text += " (" + std::string(form) + ")";
    text += "\n";
    for (const BoundPtr& arg : bound.args) Write(text, *arg, depth + 1);
}

void Write_Part(std::string& text, std::string_view head, const Bound* bound) {
    if (bound == nullptr) return;
    text += head;
    text += "\n";
    Write(text, *bound, 1);
}

void Write_Joins(std::string& text, const BoundJoin& join) {
    if (join.left) Write_Joins(text, *join.left);
    if (join.right) Write_Joins(text, *join.right);
    Write_Part(text, "on", join.on.get());
}

}  // namespace

std::string Dump(const BoundStatement& statement) {
    const BoundSelect& select = statement.select;
    std::string text;
    for (const BoundOutput& output : select.outputs)
        Write_Part(text, "output " + output.column.name, output.value.get());
    for (const BoundValue& value : statement.values) Write_Part(text, "value " + value.field, value.value.get());
    for (const BoundJoinPtr& join : select.from) Write_Joins(text, *join);
    Write_Part(text, "where", select.where.get());
    for (const BoundPtr& group : select.groupBy) Write_Part(text, "group", group.get());
    for (const BoundOrder& order : select.orderBy) {
        Write_Part(text, order.descending ? "order down" : "order", order.value.get());
    }
    return text;
}

}  // namespace tallmar::sql
