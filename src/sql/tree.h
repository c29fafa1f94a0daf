// The syntax tree of a statement. Places are byte offsets in the statement's text; they take no part in comparison.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sql/plan.h"

namespace tallmar::sql {

struct Place {
    std::size_t offset = 0;
    friend constexpr bool operator==(Place, Place) { return true; }
};

enum class ExprKind : std::uint8_t {
    Literal,  // literal, lifted
    NullWord,
    True,
    False,
    Field,    // [table.]name
    Negate,   // one argument
    Not,      // one argument
    Binary,   // op, two arguments
    And,      // two arguments
    Or,       // two arguments
    Between,  // value, low, high; negated
    In,       // value, items ...; negated
    Like,     // value, pattern; negated
    IsNull,   // value; negated
    Call,     // name, arguments
    Star,     // the * of Count(*)
};

enum class Op : std::uint8_t {
    Add,
    Subtract,
    Multiply,
    Divide,
    IntDivide,
    Mod,
    Power,
    Join,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
};
inline constexpr int kOpCount = 14;
constexpr std::string_view kOpSigns[kOpCount] = {"+", "-", "*",  "/", "\\", "Mod", "^",
                                                 "&", "=", "<>", "<", "<=", ">",   ">="};

struct Expr {
    ExprKind kind = ExprKind::NullWord;
    Op op = Op::Add;
    bool negated = false;
    int depth = 1;  // nodes down to the deepest leaf
    std::string table, name;
    int index = -1;  // of a literal among those of the statement
    sql::Literal literal;
    std::vector<std::unique_ptr<Expr>> args;
    Place place;
};
using ExprPtr = std::unique_ptr<Expr>;
// Same statement part; the literals by value, not by their place among the others.
bool Same_Expr(const Expr& a, const Expr& b);

struct TableTree {
    enum class Kind : std::uint8_t { Table, Inner, Left, Right };
    Kind kind = Kind::Table;
    int depth = 1;
    std::string name, alias;  // of a table; no alias: empty
    std::unique_ptr<TableTree> left, right;
    ExprPtr on;
    Place place;
};
using TableTreePtr = std::unique_ptr<TableTree>;

struct SelectItem {
    enum class Kind : std::uint8_t { Expr, All, AllOf };
    Kind kind = Kind::Expr;
    ExprPtr expr;
    std::string name;  // the alias; of AllOf the table
    Place place;
};

struct OrderItem {
    ExprPtr expr;
    bool descending = false;
};

struct SelectTree {
    bool distinct = false;
    int top = -1;  // -1: all rows
    std::vector<SelectItem> items;
    std::string into;
    Place intoPlace;
    std::vector<TableTreePtr> from;
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    std::vector<OrderItem> orderBy;
};

struct FieldName {
    std::string table, name;
    Place place;
};

struct Assignment {
    FieldName target;
    ExprPtr value;
};

struct NewField {
    FieldDef field;
    Place place;
};

struct StatementTree {
    enum class Kind : std::uint8_t {
        Select,
        Insert,
        InsertSelect,
        Update,
        Delete,
        DropTable,
        CreateTable,
        CreateIndex
    };
    Kind kind = Kind::Select;
    std::string name;  // the table that is written, dropped, created or indexed
    Place place;
    SelectTree select;                    // Select, InsertSelect; `from` and `where` of Update and Delete
    std::vector<FieldName> fields;        // Insert, InsertSelect
    bool named = false;                   // ... where a list of fields is written
    std::vector<ExprPtr> values;          // Insert
    std::vector<Assignment> assignments;  // Update
    std::vector<NewField> newFields;      // CreateTable
    IndexDef index;                       // CreateIndex
};
bool Same_Statement(const StatementTree& a, const StatementTree& b);

}  // namespace tallmar::sql
