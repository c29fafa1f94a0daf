#include "sql/binder.h"

#include <algorithm>

#include "common/db_error.h"
#include "common/text.h"
#include "sql/expression_binder.h"
#include "sql/keywords.h"
#include "sql/limits.h"

namespace tallmar::sql {

namespace {

constexpr int kFirstUnnamed = 1000;

class Binder {
  public:
    Binder(std::string_view text, const Schema& schema) : text_(text), schema_(schema) {}

    BoundStatement Bind(const StatementTree& statement) {
        switch (statement.kind) {
            case StatementTree::Kind::Select:
                return Select_Statement(statement);
            case StatementTree::Kind::Insert:
            case StatementTree::Kind::InsertSelect:
                return Insert(statement);
            case StatementTree::Kind::Update:
                return Update(statement);
            case StatementTree::Kind::Delete:
                return Delete(statement);
            case StatementTree::Kind::DropTable:
                return Drop(statement);
            case StatementTree::Kind::CreateTable:
                return Create_Table(statement);
            case StatementTree::Kind::CreateIndex:
                break;
        }
        return Create_Index(statement);
    }

    BoundSelect Select(const SelectTree& tree) {
        BoundSelect select;
        select.distinct = tree.distinct;
        select.top = tree.top;
        Bind_Tables(tree, select);
        for (const SelectItem& item : tree.items) Bind_Item(item, select);
        if (select.outputs.size() > kMostLiterals) Fail(DbErrorCode::TooComplex, {}, {});
        Name_Outputs(select);
        if (tree.where) select.where = Bind_Condition(*tree.where, Scope_Of(select));
        for (const ExprPtr& expr : tree.groupBy) select.groupBy.push_back(Bind_Value(*expr, Scope_Of(select)));
        Scope ordering = Summing(select);
        ordering.aliases = tree.items;
        ordering.aliasText = text_;
        for (const OrderItem& item : tree.orderBy) {
            select.orderBy.push_back({Bind_Value(*item.expr, ordering), item.descending});
        }
        if (select.aggregates || !select.groupBy.empty()) {
            for (const BoundOutput& output : select.outputs) Require_Grouped(*output.value, select);
            for (const BoundOrder& order : select.orderBy) Require_Grouped(*order.value, select);
        }
        return select;
    }

  private:
    // Tables

    const TableShape& Table(std::string_view name, Place place) {
        const TableShape* shape = schema_.Find(name);
        if (shape == nullptr) Fail(DbErrorCode::UnknownTable, name, place);
        return *shape;
    }

    void Bind_Tables(const SelectTree& tree, BoundSelect& select) {
        for (const TableTreePtr& table : tree.from) select.from.push_back(Join(*table, select));
    }

    BoundJoinPtr Join(const TableTree& tree, BoundSelect& select) {
        auto join = std::make_unique<BoundJoin>();
        join->kind = tree.kind;
        join->place = tree.place;
        if (tree.kind == TableTree::Kind::Table) {
            join->table = static_cast<int>(select.tables.size());
            select.tables.push_back({&Table(tree.name, tree.place), tree.alias.empty() ? tree.name : tree.alias});
            if (select.tables.size() > kMostTables) Fail(DbErrorCode::TooComplex, tree.name, tree.place);
            return join;
        }
        const std::size_t first = select.tables.size();
        join->left = Join(*tree.left, select);
        join->right = Join(*tree.right, select);
        Scope scope = Scope_Of(select);
        scope.firstTable = first;
        scope.tables = scope.tables.subspan(first);
        join->on = Bind_Condition(*tree.on, scope);
        return join;
    }

    // Output

    void Bind_Item(const SelectItem& item, BoundSelect& select) {
        if (item.kind == SelectItem::Kind::Expr) {
            BoundOutput output;
            output.value = Bind_Value(*item.expr, Summing(select));
            output.aliased = !item.name.empty();
            output.column.name = item.name;
            Add_Output(std::move(output), select);
            return;
        }
        bool any = false;
        for (std::size_t i = 0; i < select.tables.size(); ++i) {
            if (item.kind == SelectItem::Kind::AllOf && !Same_Text(select.tables[i].name, item.name)) continue;
            any = true;
            for (const FieldDef& field : select.tables[i].shape->fields) {
                BoundOutput output;
                output.value = Bound_Column(static_cast<int>(i), field, item.place);
                Add_Output(std::move(output), select);
            }
        }
        if (!any) Fail(DbErrorCode::UnknownTable, item.name, item.place);
    }

    static void Add_Output(BoundOutput output, BoundSelect& select) {
        const Bound& value = *output.value;
        OutputColumn& column = output.column;
        if (value.kind == BoundKind::Column) {
            column.type = value.field->type;
            column.size = value.field->size;
            column.table = value.index;
            column.field = value.field->name;
            if (!output.aliased) column.name = value.field->name;
        } else {
            column.type = Field_Type_Of(value.type);
            column.size = Has_Size(column.type) ? kDefaultTextSize : 0;
        }
        select.outputs.push_back(std::move(output));
    }

    // A name that two tables give is written with its table; what has no name, or has it twice, gets a number.
    static void Name_Outputs(BoundSelect& select) {
        const auto& outputs = select.outputs;
        std::vector<std::string> names;
        int unnamed = kFirstUnnamed;
        for (std::size_t i = 0; i < outputs.size(); ++i) {
            std::string name = outputs[i].column.name;
            bool again = false;
            for (std::size_t k = 0; k < outputs.size() && !outputs[i].aliased && !name.empty(); ++k) {
                if (k == i || !Same_Text(outputs[k].column.name, outputs[i].column.name)) continue;
                if (outputs[k].column.table == outputs[i].column.table || outputs[k].aliased) {
                    again = again || k < i || outputs[k].aliased;
                } else {
                    const auto table = static_cast<std::size_t>(outputs[i].column.table);
                    name = select.tables[table].name + "." + outputs[i].column.name;
                }
            }
            if (name.empty() || again) name = "Expr" + std::to_string(unnamed++);
            names.push_back(std::move(name));
        }
        for (std::size_t i = 0; i < names.size(); ++i) select.outputs[i].column.name = std::move(names[i]);
    }

    void Require_Grouped(const Bound& bound, const BoundSelect& select) {
        const bool grouped = std::any_of(select.groupBy.begin(), select.groupBy.end(),
                                         [&](const BoundPtr& group) { return Same_Bound(*group, bound); });
        const bool summed = bound.kind == BoundKind::Call && bound.function->kind == FunctionKind::Aggregate;
        if (grouped || summed) return;
        if (bound.kind == BoundKind::Column) Fail(DbErrorCode::NotGrouped, bound.field->name, bound.place);
        for (const BoundPtr& arg : bound.args) Require_Grouped(*arg, select);
    }

    // Statements

    BoundStatement Select_Statement(const StatementTree& statement) {
        BoundStatement bound;
        bound.select = Select(statement.select);
        if (statement.select.into.empty()) return bound;
        bound.kind = Plan::Kind::SelectInto;
        Require_New(statement.select.into, statement.select.intoPlace);
        bound.create.name = statement.select.into;
        bound.table = statement.select.into;
        for (BoundOutput& output : bound.select.outputs) {
            const FieldDef field{output.column.name, output.column.type, output.column.size};
            Require_New_Field(bound.create, field.name, statement.select.intoPlace);
            bound.create.fields.push_back(field);
            bound.values.push_back(
                {field.name, For_Field(std::move(output.value), field, bound.create, Scope_Of(bound.select))});
        }
        return bound;
    }

    BoundStatement Insert(const StatementTree& statement) {
        BoundStatement bound;
        bound.kind = Plan::Kind::Insert;
        const TableShape& table = Table(statement.name, statement.place);
        bound.table = table.name;
        bound.fromSelect = statement.kind == StatementTree::Kind::InsertSelect;
        if (bound.fromSelect) bound.select = Select(statement.select);

        const std::vector<const FieldDef*> fields = Fields_Of_Insert(statement, table, bound.select);
        const std::size_t count = bound.fromSelect ? bound.select.outputs.size() : statement.values.size();
        if (count != fields.size()) Fail(DbErrorCode::ValueCount, table.name, statement.place);
        const Scope scope = Scope_Of(bound.select);
        for (std::size_t i = 0; i < count; ++i) {
            bound.values.push_back(
                {fields[i]->name, bound.fromSelect
                                      ? For_Field(std::move(bound.select.outputs[i].value), *fields[i], table, scope)
                                      : Bind_For_Field(*statement.values[i], *fields[i], table, scope)});
        }
        for (const FieldDef& field : table.fields) {
            const bool named = std::find(fields.begin(), fields.end(), &field) != fields.end();
            if (!named && table.Disallows_Null(field.name)) {
                bound.values.push_back({field.name, Null_For_Field(field, table)});
            }
        }
        return bound;
    }

    // The fields in the order of the values: those listed; else by the names of the SELECT where all are fields of
    // the table; else all of the table.
    std::vector<const FieldDef*> Fields_Of_Insert(const StatementTree& statement, const TableShape& table,
                                                  const BoundSelect& select) {
        std::vector<const FieldDef*> fields;
        for (const FieldName& name : statement.fields) {
            const FieldDef* field = table.Find_Field(name.name);
            if (field == nullptr) Fail(DbErrorCode::UnknownField, name.name, name.place);
            Require_Once(fields, field, name.place);
            fields.push_back(field);
        }
        if (statement.named) return fields;
        for (const BoundOutput& output : select.outputs) {
            const FieldDef* field = table.Find_Field(output.column.name);
            if (field != nullptr && std::find(fields.begin(), fields.end(), field) == fields.end()) {
                fields.push_back(field);
            }
        }
        if (!fields.empty() && fields.size() == select.outputs.size()) return fields;
        fields.clear();
        for (const FieldDef& field : table.fields) fields.push_back(&field);
        return fields;
    }

    BoundStatement Update(const StatementTree& statement) {
        BoundStatement bound;
        BoundSelect& select = bound.select;
        Bind_Tables(statement.select, select);
        const Scope scope = Scope_Of(select);
        std::vector<const FieldDef*> fields;
        for (const Assignment& assignment : statement.assignments) {
            const FieldName& name = assignment.target;
            const FieldPlace at = Resolve(name.table, name.name, name.place, scope);
            if (fields.empty()) bound.target = at.table;
            if (at.table != bound.target) Fail(DbErrorCode::NotUpdatable, name.name, name.place);
            const TableShape& table = *select.tables[static_cast<std::size_t>(at.table)].shape;
            const FieldDef& field = table.fields[static_cast<std::size_t>(at.field)];
            Require_Once(fields, &field, name.place);
            fields.push_back(&field);
            bound.values.push_back({field.name, Bind_For_Field(*assignment.value, field, table, scope)});
        }
        const TableShape& target = *select.tables[static_cast<std::size_t>(bound.target)].shape;
        bound.table = target.name;
        if (statement.select.where) select.where = Bind_Condition(*statement.select.where, scope);
        bound.kind = Plan::Kind::Update;
        if (select.tables.size() > 1) {
            bound.kind = Plan::Kind::RowUpdate;
            return bound;
        }
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (!target.Is_Key_Field(fields[i]->name)) continue;
            bound.kind = Plan::Kind::RowUpdate;
            bound.values[i].movesKey = Bound_Column(0, *fields[i], {});
        }
        return bound;
    }

    BoundStatement Delete(const StatementTree& statement) {
        BoundStatement bound;
        bound.kind = Plan::Kind::Delete;
        const TableShape& table = Table(statement.name, statement.place);
        bound.table = table.name;
        bound.select.tables.push_back({&table, statement.name});
        if (statement.select.where) {
            bound.select.where = Bind_Condition(*statement.select.where, Scope_Of(bound.select));
        }
        return bound;
    }

    BoundStatement Drop(const StatementTree& statement) {
        BoundStatement bound;
        bound.kind = Plan::Kind::DropTable;
        bound.create.name = Table(statement.name, statement.place).name;
        return bound;
    }

    BoundStatement Create_Table(const StatementTree& statement) {
        BoundStatement bound;
        bound.kind = Plan::Kind::CreateTable;
        Require_New(statement.name, statement.place);
        bound.create.name = statement.name;
        for (const NewField& made : statement.newFields) {
            Require_New_Field(bound.create, made.field.name, made.place);
            bound.create.fields.push_back(made.field);
        }
        return bound;
    }

    BoundStatement Create_Index(const StatementTree& statement) {
        BoundStatement bound;
        bound.kind = Plan::Kind::CreateIndex;
        const TableShape& table = Table(statement.name, statement.place);
        bound.create.name = table.name;
        if (table.Find_Index(statement.index.name) != nullptr) {
            Fail(DbErrorCode::IndexExists, statement.index.name, statement.place);
        }
        IndexDef index = statement.index;
        index.fields.clear();
        for (const FieldName& name : statement.fields) {
            const FieldDef* field = table.Find_Field(name.name);
            if (field == nullptr) Fail(DbErrorCode::UnknownField, name.name, name.place);
            index.fields.push_back(field->name);
        }
        bound.create.indexes.push_back(std::move(index));
        return bound;
    }

    // Requirements

    void Require_New(std::string_view table, Place place) {
        if (schema_.Find(table) != nullptr) Fail(DbErrorCode::TableExists, table, place);
    }

    void Require_New_Field(const TableShape& table, std::string_view field, Place place) {
        if (table.Find_Field(field) != nullptr) Fail(DbErrorCode::FieldExists, field, place);
        if (Hides_Row_Key(field)) Fail(DbErrorCode::InvalidOperation, field, place);
    }

    void Require_Once(const std::vector<const FieldDef*>& fields, const FieldDef* field, Place place) {
        if (std::find(fields.begin(), fields.end(), field) != fields.end()) {
            Fail(DbErrorCode::NotUpdatable, field->name, place);
        }
    }

    Scope Scope_Of(const BoundSelect& select) const {
        Scope scope;
        scope.text = text_;
        scope.tables = select.tables;
        return scope;
    }

    Scope Summing(BoundSelect& select) const {
        Scope scope = Scope_Of(select);
        scope.mayAggregate = true;
        scope.aggregated = &select.aggregates;
        return scope;
    }

    [[noreturn]] void Fail(DbErrorCode code, std::string_view argument, Place place) const {
        throw DbError(code, argument, text_, place.offset);
    }

    std::string_view text_;
    const Schema& schema_;
};

}  // namespace

BoundStatement Bind_Statement(const StatementTree& statement, std::string_view text, const Schema& schema) {
    return Binder(text, schema).Bind(statement);
}

BoundFind Bind_Find(const SelectTree& source, std::string_view sourceText, const Expr& criterion,
                    std::string_view criterionText, const Schema& schema) {
    BoundFind find;
    find.select = Binder(sourceText, schema).Select(source);
    if (!find.select.Has_Keys())
        throw DbError(DbErrorCode::InvalidOperation, {}, criterionText, criterion.place.offset);
    Scope scope;
    scope.text = criterionText;
    scope.tables = find.select.tables;
    scope.aliases = source.items;
    scope.aliasText = sourceText;
    find.criterion = Bind_Condition(criterion, scope);
    return find;
}

}  // namespace tallmar::sql
