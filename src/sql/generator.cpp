#include "sql/generator.h"

#include <algorithm>

#include "sql/match_count.h"
#include "sql/sql_writer.h"

namespace tallmar::sql {

namespace {

constexpr std::string_view kLineField = "LineNum";

using Values = std::vector<const Bound*>;

Values Outputs_Of(const BoundSelect& select) {
    Values values;
    for (const BoundOutput& output : select.outputs) values.push_back(output.value.get());
    return values;
}

Values Values_Of(const BoundStatement& statement) {
    Values values;
    for (const BoundValue& each : statement.values) values.push_back(each.value.get());
    return values;
}

int Table_Count(const BoundSelect& select) {
    return static_cast<int>(select.tables.size());
}

// The side whose rows a join keeps leads: of a right join the right one.
void Add_Leading(const BoundJoin& join, std::vector<int>& order) {
    if (join.kind == TableTree::Kind::Table) return order.push_back(join.table);
    const bool right = join.kind == TableTree::Kind::Right;
    Add_Leading(right ? *join.right : *join.left, order);
    Add_Leading(right ? *join.left : *join.right, order);
}

// The tables in the order in which their rows order those of the join.
std::vector<int> Leading_Order(const BoundSelect& select) {
    std::vector<int> order;
    for (const BoundJoinPtr& join : select.from) Add_Leading(*join, order);
    return order;
}

// Writes commas and the like between the parts of a list.
class Between {
  public:
    Between(SqlWriter& sql, std::string_view first, std::string_view next) : sql_(sql), first_(first), next_(next) {}
    SqlWriter& operator()() { return sql_ << (parts_++ == 0 ? first_ : next_); }

  private:
    SqlWriter& sql_;
    std::string_view first_, next_;
    int parts_ = 0;
};

void Write_List(SqlWriter& sql, std::string_view lead, const Values& values) {
    Between comma(sql, lead, ",");
    for (const Bound* value : values) comma().Value(*value);
}

void Write_Keys(SqlWriter& sql, std::string_view lead, const BoundSelect& select) {
    Between comma(sql, lead, ",");
    for (int i = 0; i < Table_Count(select); ++i) comma().Rowid(i);
}

void Write_Where(SqlWriter& sql, const Bound* where) {
    if (where == nullptr) return;
    sql << " WHERE ";
    sql.Value(*where);
}

// The key of a row as one value, the first of a group by MIN.
void Write_Row_Key(SqlWriter& sql, const BoundSelect& select) {
    if (select.tables.size() == 1) return sql.Rowid(0);
    Between comma(sql, "t_key(", ",");
    for (const int table : Leading_Order(select)) comma().Rowid(table);
    sql << ")";
}

void Write_Limit(SqlWriter& sql, const BoundSelect& select) {
    if (select.top >= 0) sql << " LIMIT " << std::to_string(select.top);
}

void Write_Order_Terms(Between& comma, const BoundSelect& select) {
    for (const BoundOrder& order : select.orderBy) {
        SqlWriter& sql = comma();
        sql.Term(*order.value);
        if (order.descending) sql << " DESC";
    }
}

// Ties under TOP go by line number, all others by insertion.
void Write_Order(SqlWriter& sql, const BoundSelect& select) {
    Between comma(sql, " ORDER BY ", ",");
    Write_Order_Terms(comma, select);
    if (select.top >= 0 && !select.orderBy.empty()) {
        for (int i = 0; i < Table_Count(select); ++i) {
            const FieldDef* line = select.tables[static_cast<std::size_t>(i)].shape->Find_Field(kLineField);
            if (line == nullptr) continue;
            comma() << "t" << std::to_string(i) << ".";
            sql.Name(line->name);
            break;
        }
    }
    for (const int table : Leading_Order(select)) comma().Rowid(table);
    Write_Limit(sql, select);
}

// Groups come in the order of their first rows unless they are ordered.
void Write_Groups(SqlWriter& sql, const BoundSelect& select, const Values& groups) {
    Between comma(sql, " GROUP BY ", ",");
    for (const Bound* group : groups) comma().Term(*group);
    Between order(sql, " ORDER BY ", ",");
    Write_Order_Terms(order, select);
    order() << "MIN(";
    Write_Row_Key(sql, select);
    sql << ")";
    Write_Limit(sql, select);
}

void Write_Select(SqlWriter& sql, const BoundSelect& select, const Values& values) {
    const bool grouped = !select.groupBy.empty();
    sql << "SELECT ";
    if (select.distinct && (grouped || select.aggregates)) sql << "DISTINCT ";
    Write_List(sql, "", values);
    sql.From(select);
    Write_Where(sql, select.where.get());
    if (select.distinct && !grouped && !select.aggregates) return Write_Groups(sql, select, values);
    if (!grouped && !select.aggregates) return Write_Order(sql, select);
    if (!grouped) return Write_Limit(sql, select);
    Values groups;
    for (const BoundPtr& group : select.groupBy) groups.push_back(group.get());
    if (!select.distinct) return Write_Groups(sql, select, groups);
    Between comma(sql, " GROUP BY ", ",");
    for (const Bound* group : groups) comma().Term(*group);
    Between order(sql, " ORDER BY ", ",");
    Write_Order_Terms(order, select);
    Write_Limit(sql, select);
}

bool Has_Outer_Join(const BoundJoin& join) {
    if (join.kind == TableTree::Kind::Table) return false;
    return join.kind != TableTree::Kind::Inner || Has_Outer_Join(*join.left) || Has_Outer_Join(*join.right);
}

bool Has_Outer_Join(const BoundSelect& select) {
    return std::any_of(select.from.begin(), select.from.end(),
                       [](const BoundJoinPtr& join) { return Has_Outer_Join(*join); });
}

// `values` of the row with given keys; no row where one of its rows is gone. An outer join may have Null for a key.
SqliteText Row_By_Keys(const BoundSelect& select, const Values& values) {
    SqlWriter sql;
    Write_List(sql, "SELECT ", values);
    const bool outer = Has_Outer_Join(select);
    Between table(sql, outer ? " FROM (SELECT 1) LEFT JOIN " : " FROM ", outer ? " LEFT JOIN " : " JOIN ");
    const auto key = [&](int i) { sql.Parameter({Param::From::Key, i, Rep::Integer}); };
    for (int i = 0; i < Table_Count(select); ++i) {
        table().Table(select.tables[static_cast<std::size_t>(i)], i);
        if (!outer) continue;
        sql << " ON ";
        sql.Rowid(i);
        sql << "=";
        key(i);
    }
    Between also(sql, " WHERE ", " AND ");
    for (int i = 0; i < Table_Count(select); ++i) {
        also();
        if (outer) {
            sql << "(";
            key(i);
            sql << " IS NULL OR ";
            sql.Rowid(i);
            sql << " IS NOT NULL)";
        } else {
            sql.Rowid(i);
            sql << "=";
            key(i);
        }
    }
    return sql.Take();
}

SelectPlan Select_Plan(BoundSelect& select) {
    SelectPlan plan;
    for (const BoundTable& table : select.tables) plan.tables.push_back(table.shape->name);
    const Values values = Outputs_Of(select);
    SqlWriter rows;
    Write_Select(rows, select, values);
    plan.rows = rows.Take();
    if (select.Has_Keys()) {
        SqlWriter keys;
        Write_Keys(keys, "SELECT ", select);
        keys.From(select);
        Write_Where(keys, select.where.get());
        Write_Order(keys, select);
        plan.keys = keys.Take();
        plan.row = Row_By_Keys(select, values);
    }
    for (BoundOutput& output : select.outputs) plan.columns.push_back(std::move(output.column));
    return plan;
}

SqliteText Insert_Text(const BoundStatement& statement, bool fromSelect) {
    SqlWriter sql;
    sql << "INSERT INTO ";
    sql.Name(statement.table);
    Between comma(sql, "(", ",");
    for (const BoundValue& value : statement.values) comma().Name(value.field);
    sql << ") ";
    if (fromSelect) {
        Write_Select(sql, statement.select, Values_Of(statement));
    } else {
        Write_List(sql, "VALUES(", Values_Of(statement));
        sql << ")";
    }
    return sql.Take();
}

SqliteText Update_Text(const BoundStatement& statement) {
    SqlWriter sql;
    sql << "UPDATE ";
    sql.Table(statement.select.tables[0], 0);
    Between comma(sql, " SET ", ",");
    for (const BoundValue& value : statement.values) {
        comma().Name(value.field);
        sql << "=";
        sql.Value(*value.value);
    }
    Write_Where(sql, statement.select.where.get());
    return sql.Take();
}

SqliteText Delete_Text(const BoundStatement& statement) {
    SqlWriter sql;
    sql << "DELETE FROM ";
    sql.Table(statement.select.tables[0], 0);
    Write_Where(sql, statement.select.where.get());
    return sql.Take();
}

// Rows that move onto new keys go so that each finds its place free: those that move down from the lowest on, then
// those that move up from the highest on. `value` is the new key, as the statement has named it.
void Write_Key_Order(Between& comma, const Bound& key, const std::string& value) {
    const auto up = [&](SqlWriter& sql) {
        sql << value << ">";
        sql.Value(key);
    };
    up(comma());
    SqlWriter& sql = comma();
    sql << "CASE WHEN ";
    up(sql);
    sql << " THEN NULL ELSE ";
    sql.Value(key);
    sql << " END";
    comma().Value(key);
    sql << " DESC";
}

std::string Value_Name(std::size_t i) {
    return "v" + std::to_string(i);
}

void Write_Match_Order(SqlWriter& sql, const BoundStatement& statement) {
    const BoundSelect& select = statement.select;
    Between comma(sql, " ORDER BY ", ",");
    for (std::size_t i = 0; i < statement.values.size(); ++i) {
        const Bound* key = statement.values[i].movesKey.get();
        if (key != nullptr) Write_Key_Order(comma, *key, Value_Name(i));
    }
    for (const int table : Leading_Order(select)) {
        if (table != statement.target) comma().Rowid(table);
    }
    comma().Rowid(statement.target);
}

bool Is_Self_Reference(const BoundStatement& statement) {
    const auto& tables = statement.select.tables;
    const TableShape* target = tables[static_cast<std::size_t>(statement.target)].shape;
    return std::count_if(tables.begin(), tables.end(), [&](const BoundTable& table) { return table.shape == target; }) >
           1;
}

// Matches in the order of the other tables' rows, then the target's. Where a target row may be met more than once only
// its first match has values (where the target reads itself, only the very first): those of the others are worked out
// on the rows as they then are, and must not fail before.
SqliteText Match_Text(const BoundStatement& statement) {
    const BoundSelect& select = statement.select;
    const bool single = Meets_Once(select, statement.target) && !Is_Self_Reference(statement);
    SqlWriter sql;
    Write_Keys(sql, "SELECT ", select);
    for (std::size_t i = 0; i < statement.values.size(); ++i) {
        const BoundValue& value = statement.values[i];
        sql << ",";
        if (single) {
            sql.Value(*value.value);
            if (value.movesKey) sql << " AS " << Value_Name(i);
        } else {
            sql << "CASE WHEN row_number() OVER (";
            if (!Is_Self_Reference(statement)) {
                sql << "PARTITION BY ";
                sql.Rowid(statement.target);
            }
            Write_Match_Order(sql, statement);
            sql << ")=1 THEN ";
            sql.Value(*value.value);
            sql << " END";
        }
    }
    sql.From(select);
    Between also(sql, " WHERE ", " AND ");
    if (select.where) also().Value(*select.where);
    if (Has_Outer_Join(select)) {
        also().Rowid(statement.target);
        sql << " IS NOT NULL";
    }
    Write_Match_Order(sql, statement);
    return sql.Take();
}

SqliteText Apply_Text(const BoundStatement& statement) {
    SqlWriter sql;
    sql << "UPDATE ";
    sql.Name(statement.table);
    Between comma(sql, " SET ", ",");
    int column = 0;
    for (const BoundValue& value : statement.values) {
        comma().Name(value.field);
        sql << "=";
        sql.Parameter({Param::From::Column, column++, Rep::None});
    }
    sql << " WHERE rowid=";
    sql.Parameter({Param::From::Key, statement.target, Rep::Integer});
    return sql.Take();
}

RowUpdatePlan Row_Update_Plan(const BoundStatement& statement) {
    const BoundSelect& select = statement.select;
    RowUpdatePlan plan;
    plan.table = statement.table;
    plan.target = statement.target;
    plan.tableCount = Table_Count(select);
    plan.match = Match_Text(statement);
    plan.apply = Apply_Text(statement);
    plan.again = Row_By_Keys(select, Values_Of(statement));
    plan.selfReference = Is_Self_Reference(statement);
    return plan;
}

}  // namespace

Plan Generate(BoundStatement& statement) {
    Plan plan;
    plan.kind = statement.kind;
    plan.create = std::move(statement.create);
    switch (statement.kind) {
        case Plan::Kind::Select:
            plan.select = Select_Plan(statement.select);
            break;
        case Plan::Kind::SelectInto:
            plan.sql = Insert_Text(statement, true);
            break;
        case Plan::Kind::Insert:
            plan.sql = Insert_Text(statement, statement.fromSelect);
            break;
        case Plan::Kind::Update:
            plan.sql = Update_Text(statement);
            break;
        case Plan::Kind::Delete:
            plan.sql = Delete_Text(statement);
            break;
        case Plan::Kind::RowUpdate:
            plan.rowUpdate = Row_Update_Plan(statement);
            break;
        case Plan::Kind::DropTable:
        case Plan::Kind::CreateTable:
        case Plan::Kind::CreateIndex:
            break;
    }
    return plan;
}

SqliteText Generate_Find(const BoundFind& find) {
    const BoundSelect& select = find.select;
    SqlWriter sql;
    Write_Keys(sql, "SELECT ", select);
    sql.From(select);
    sql << " WHERE ";
    sql.Value(*find.criterion);
    if (select.top >= 0) {
        sql << " AND ";
        Write_Row_Key(sql, select);
        sql << " IN (SELECT ";
        Write_Row_Key(sql, select);
        sql.From(select);
        Write_Where(sql, select.where.get());
        Write_Order(sql, select);
        sql << ")";
    } else if (select.where) {
        sql << " AND ";
        sql.Value(*select.where);
    }
    Write_Order(sql, select);
    return sql.Take();
}

namespace {

const Bound* First_Field(const Bound& value) {
    if (value.kind == BoundKind::Column) return &value;
    for (const BoundPtr& part : value.args) {
        if (const Bound* field = First_Field(*part)) return field;
    }
    return nullptr;
}

// Named by the first field that the value is made of.
ProbedValue Probed_Read(const BoundSelect& select, const Bound& value, const std::string& otherwise) {
    const Bound* field = First_Field(value);
    if (field == nullptr) return {{}, otherwise, {}};
    return {select.tables[static_cast<std::size_t>(field->index)].shape->name, field->field->name, {}};
}

}  // namespace

Probe Generate_Probe(const BoundStatement& statement) {
    const BoundSelect& select = statement.select;
    const bool byRow = select.Has_Keys();
    Probe probe;
    probe.target = statement.target;
    probe.table = statement.table;
    if (select.tables.empty()) return probe;
    const TableShape& table = *select.tables[static_cast<std::size_t>(statement.target)].shape;
    probe.table = table.name;
    if (const FieldDef* line = table.Find_Field(kLineField)) probe.lineField = line->name;
    if (byRow) {
        SqlWriter keys;
        Write_Keys(keys, "SELECT ", select);
        keys.From(select);
        Write_Where(keys, select.where.get());
        probe.keys = keys.Take();
    }
    const auto text_of = [&](const Bound& value) {
        if (byRow) return Row_By_Keys(select, {&value});
        SqlWriter sql;
        Write_Select(sql, select, {&value});
        return sql.Take();
    };
    const auto add = [&](ProbedValue named, const Bound& value) {
        named.sql = text_of(value);
        probe.values.push_back(std::move(named));
    };
    for (const BoundValue& each : statement.values) {
        const bool read = statement.fromSelect;
        add(read ? Probed_Read(select, *each.value, each.field) : ProbedValue{table.name, each.field, {}}, *each.value);
    }
    for (const BoundOutput& output : select.outputs) {
        if (output.value == nullptr) continue;  // an insert has taken it among its values
        add(Probed_Read(select, *output.value, output.column.name), *output.value);
    }
    return probe;
}

}  // namespace tallmar::sql
