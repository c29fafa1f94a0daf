// Statements with every name resolved and every expression typed: what the binder makes and the generator writes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sql/coercion.h"
#include "sql/functions.h"
#include "sql/tree.h"

namespace tallmar::sql {

enum class BoundKind : std::uint8_t {
    Literal,  // literal `index`, bound as SQLite holds `type`
    NullWord,
    True,
    False,
    Column,  // `field` of table `index`
    Negate,
    Binary,  // op, form
    Cast,    // the argument made into `type`
    Not,
    And,
    Or,
    Between,  // form; negated
    In,       // form; negated
    Like,     // negated
    IsNull,   // negated
    Case,     // condition, value, other value
    Call,     // function, functionForm
    Star,     // all rows, of Count(*)
    Check,    // `sql` around the argument: on the way into a field
};

struct Bound {
    BoundKind kind = BoundKind::NullWord;
    Type type = Type::None;
    int index = -1;
    const FieldDef* field = nullptr;
    Op op = Op::Add;
    Form form = Form::Plain;
    bool negated = false;
    const FunctionRow* function = nullptr;
    const FunctionForm* functionForm = nullptr;
    std::string sql;
    std::vector<std::unique_ptr<Bound>> args;
    Place place;
};
using BoundPtr = std::unique_ptr<Bound>;

struct BoundTable {
    const TableShape* shape = nullptr;
    std::string name;  // by which fields are qualified
};

struct BoundJoin {
    TableTree::Kind kind = TableTree::Kind::Table;
    int table = -1;  // of a table, its place in BoundSelect::tables
    std::unique_ptr<BoundJoin> left, right;
    BoundPtr on;
    Place place;
};
using BoundJoinPtr = std::unique_ptr<BoundJoin>;

struct BoundOutput {
    BoundPtr value;
    OutputColumn column;
    bool aliased = false;
};

struct BoundOrder {
    BoundPtr value;
    bool descending = false;
};

struct BoundSelect {
    bool distinct = false;
    int top = -1;
    std::vector<BoundTable> tables;
    std::vector<BoundJoinPtr> from;
    std::vector<BoundOutput> outputs;
    BoundPtr where;
    std::vector<BoundPtr> groupBy;
    std::vector<BoundOrder> orderBy;
    bool aggregates = false;
    bool Has_Keys() const { return !distinct && !aggregates && groupBy.empty(); }
};

struct BoundValue {
    std::string field;            // of the table that is written
    BoundPtr value;               // converted and checked for it
    BoundPtr movesKey = nullptr;  // the field itself, where it is the key of a unique index and goes row by row
};

struct BoundStatement {
    Plan::Kind kind = Plan::Kind::Select;
    BoundSelect select;       // of Update, RowUpdate and Delete too: tables, from, where
    TableShape create;        // SelectInto, CreateTable, CreateIndex, DropTable
    std::string table;        // that is written
    int target = 0;           // its place among the tables
    bool fromSelect = false;  // Insert: one row of values for each row of `select`
    std::vector<BoundValue> values;
};

}  // namespace tallmar::sql
