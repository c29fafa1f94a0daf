// What the dialect's compiler hands to the engine: SQLite statements with a recipe for their parameters.
//
// The path of a statement: Lift() cuts it into a shape and its literals; a shape that the cache knows has its plan
// ready; otherwise parse -> bind -> generate make the plan. Executing a plan binds the literals and steps.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"
#include "sql/schema.h"

namespace tallmar::sql {

// How SQLite holds a value. Currency is the amount x 10 000 as INTEGER, Date the serial as REAL, Boolean -1 or 0,
// Text UTF-8; Integer serves Byte, Integer and Long; Double serves Single and Double.
enum class Rep : std::uint8_t { None, Boolean, Integer, Currency, Double, Date, Text };

// A literal of a statement, lifted out of its text.
struct Literal {
    enum class Kind : char {
        Integer = 'i',  // whole, within 32 bits
        Decimal = 'd',  // a point, four places at most, within Currency: exact beside a Currency
        Double = 'f',   // every other number
        Text = 't',
        Date = 'D',
    };
    Kind kind = Kind::Integer;
    Value value;        // Long; for Decimal the Currency; Double; text; Date
    double number = 0;  // of Integer, Decimal and Double
};

struct LiftedStatement {
    std::string shape;  // upper-cased outside brackets, blanks folded, each literal a '?' and its kind
    std::vector<Literal> literals;
};

// Throws DbError(SyntaxError) on a character or a literal that the dialect does not have.
LiftedStatement Lift(std::string_view statement);

// One parameter of a SQLite statement, in the order ?1, ?2, ...
struct Param {
    enum class From : std::uint8_t {
        Literal,  // literals[index], bound as `rep`
        Key,      // rowid of the base table `index` of the statement
        Column,   // value `index` of a row of `match` (RowUpdate::apply)
    };
    From from = From::Literal;
    int index = 0;
    Rep rep = Rep::None;
};

struct SqliteText {
    std::string sql;
    std::vector<Param> params;
};

// A column of a SELECT.
struct OutputColumn {
    std::string name;  // field name or alias; "Expr1000" and on for unnamed ones; "A.LineNum" where a name comes twice
    FieldType type = FieldType::Text;
    int size = 0;
    int table = -1;     // base table, where the column is one of its fields, unchanged
    std::string field;  // the field's name there
};

// One reading of rows. Rows come in the order of the statement: ORDER BY, then insertion order.
struct SelectPlan {
    std::vector<OutputColumn> columns;
    std::vector<std::string> tables;  // base tables in the order of FROM
    SqliteText rows;                  // all output columns, in their storage representation
    // For a dynaset; empty sql where the rows are no rows of tables (DISTINCT, GROUP BY, aggregates):
    SqliteText keys;  // one rowid a base table (Null where an outer join has none), in the order of `rows`
    SqliteText row;   // the output columns of the row with these keys
};

// An update that goes match by match: through a join, or of a field that a unique index holds.
struct RowUpdatePlan {
    std::string table;  // the target
    int target = 0;     // its place among the base tables
    int tableCount = 1;
    SqliteText match;  // the keys of every base table, then the new values in storage representation, checked and
                       // converted for their fields; in the order in which they are to be applied
    SqliteText apply;  // UPDATE target SET ... WHERE rowid = <key of target>; values are Param::Column from 0
    SqliteText again;  // the new values again for given keys: for a target row that an earlier match has changed, and
                       // for all rows where `selfReference`
    bool selfReference = false;  // the target table is read under another alias as well
};

struct Plan {
    enum class Kind : std::uint8_t {
        Select,       // select
        SelectInto,   // create, then sql
        Insert,       // sql
        Update,       // sql
        RowUpdate,    // rowUpdate
        Delete,       // sql
        DropTable,    // create.name
        CreateTable,  // create
        CreateIndex,  // create.name, create.indexes[0]
    };
    Kind kind = Kind::Select;
    SqliteText sql;
    SelectPlan select;
    RowUpdatePlan rowUpdate;
    TableShape create;
};

// Compile the statement. Throws DbError with the place in the text on anything outside the dialect, on unknown
// tables, fields and functions, and on types that do not go together.
Plan Compile(std::string_view statement, const Schema& schema);
// The keys of the rows of the SELECT `source` (or of the table of that name) that meet `criterion`, a WHERE text of
// the dialect, in the order of `source`. The literals of `source` come before those of `criterion`.
SqliteText Compile_Find(std::string_view source, std::string_view criterion, const Schema& schema);

// True for a SELECT that is opened and not executed: one without INTO. Throws as Lift does.
bool Is_Select(std::string_view statement);
// SELECT of a whole table: "Log" means "SELECT * FROM Log".
bool Is_Table_Name(std::string_view source);

}  // namespace tallmar::sql
