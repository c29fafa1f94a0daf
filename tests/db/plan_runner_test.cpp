// The body of the runner, and what it shows of itself.
#include "db/plan_runner.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "common/db_error.h"
#include "common/numbers.h"
#include "db/callbacks.h"
#include "db/collation.h"
#include "sql/functions.h"

namespace tallmar::test {

namespace {

constexpr struct {
    FieldType type;
    const char* declared;
} kDeclared[] = {
    {FieldType::Boolean, "BOOLEAN INT"},
    {FieldType::Byte, "BYTE INT"},
    {FieldType::Integer, "INTEGER INT"},
    {FieldType::Long, "LONG INT"},
    {FieldType::Currency, "CURRENCY INT"},
    {FieldType::Single, "SINGLE REAL"},
    {FieldType::Double, "DOUBLE REAL"},
    {FieldType::Date, "DATE REAL"},
    {FieldType::Text, "TEXT"},
    {FieldType::Memo, "MEMO TEXT"},
    {FieldType::Char, "CHAR"},
};

std::string Name(std::string_view name) {
    return "\"" + Replace(name, "\"", "\"\"") + "\"";
}

void Bind(sqlite3_stmt* statement, int index, const sql::Literal& literal, sql::Rep rep) {
    const Value& value = literal.value;
    switch (rep) {
        case sql::Rep::None:
            sqlite3_bind_null(statement, index);
            return;
        case sql::Rep::Boolean:
            sqlite3_bind_int64(statement, index, literal.number != 0 ? -1 : 0);
            return;
        case sql::Rep::Integer:
            sqlite3_bind_int64(statement, index, value.To_Long());
            return;
        case sql::Rep::Currency:
            sqlite3_bind_int64(statement, index, value.To_Currency().Scaled());
            return;
        case sql::Rep::Double:
            sqlite3_bind_double(statement, index, value.To_Double());
            return;
        case sql::Rep::Date:
            sqlite3_bind_double(statement, index, value.To_Date().serial);
            return;
        case sql::Rep::Text:
            break;
    }
    const std::string text = value.To_Text();
    sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

std::string Column_Text(const std::string& raw, FieldType type) {
    if (raw == "Null") return raw;
    switch (type) {
        case FieldType::Currency:
            return Currency::From_Scaled(std::stoll(raw)).To_Text();
        case FieldType::Single:
        case FieldType::Double:
            return Number_Text(std::stod(raw));
        case FieldType::Date:
            return Value(Date{std::stod(raw)}).To_Text();
        default:
            return raw;
    }
}

}  // namespace

PlanRunner::PlanRunner() {
    sqlite3_open(":memory:", &handle_);
    db_detail::Register_Functions(handle_);
    Register_Collation(handle_);
}

PlanRunner::~PlanRunner() {
    sqlite3_close(handle_);
}

void PlanRunner::Exec(const std::string& sql) {
    char* message = nullptr;
    if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
        throw std::runtime_error(sql + ": " + message);
    }
}

void PlanRunner::Create(const TableShape& shape) {
    std::string sql;
    for (const FieldDef& field : shape.fields) {
        sql += (sql.empty() ? "" : ", ") + Name(field.name) + " ";
        for (const auto& row : kDeclared) {
            if (row.type == field.type) sql += row.declared;
        }
        if (Has_Size(field.type)) sql += "(" + std::to_string(field.size) + ")";
        if (Has_Size(field.type) || field.type == FieldType::Memo) sql += " COLLATE TEXT1252";
    }
    Exec("CREATE TABLE " + Name(shape.name) + " (" + sql + ")");
    schema_.Put(shape);
}

std::vector<std::vector<std::string>> PlanRunner::Raw(const sql::SqliteText& text,
                                                      const std::vector<sql::Literal>& literals,
                                                      const std::vector<std::string>& keys,
                                                      const std::vector<std::string>& columns) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle_, text.sql.data(), static_cast<int>(text.sql.size()), &statement, nullptr) !=
        SQLITE_OK) {
        throw std::runtime_error(text.sql + ": " + sqlite3_errmsg(handle_));
    }
    EXPECT_EQ(sqlite3_bind_parameter_count(statement), static_cast<int>(text.params.size())) << text.sql;
    for (std::size_t i = 0; i < text.params.size(); ++i) {
        const sql::Param& param = text.params[i];
        const int index = static_cast<int>(i) + 1;
        const auto from = static_cast<std::size_t>(param.index);
        if (param.from == sql::Param::From::Literal) {
            Bind(statement, index, literals.at(from), param.rep);
        } else {
            const std::string& raw = param.from == sql::Param::From::Key ? keys.at(from) : columns.at(from);
            if (raw != "Null") sqlite3_bind_text(statement, index, raw.c_str(), -1, SQLITE_TRANSIENT);
        }
    }
    std::vector<std::vector<std::string>> rows;
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        rows.emplace_back();
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const auto* cell = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            rows.back().push_back(cell == nullptr ? "Null" : cell);
            if (sqlite3_column_type(statement, i) == SQLITE_FLOAT) {
                rows.back().back() = Number_Text(sqlite3_column_double(statement, i));
            }
        }
    }
    const std::string message = sqlite3_errmsg(handle_);
    sqlite3_finalize(statement);
    if (result != SQLITE_DONE) {
        if (const auto error = db_detail::Decode_Error(message)) throw DbError(error->code, error->argument);
        throw std::runtime_error(text.sql + ": " + message);
    }
    return rows;
}

std::vector<std::string> PlanRunner::Rows(const sql::SqliteText& text, const std::vector<sql::Literal>& literals,
                                          const std::vector<sql::OutputColumn>& columns,
                                          const std::vector<std::string>& keys) {
    std::vector<std::string> rows;
    for (const auto& raw : Raw(text, literals, keys, {})) {
        std::string row;
        for (std::size_t i = 0; i < raw.size(); ++i) {
            const FieldType type = i < columns.size() ? columns[i].type : FieldType::Text;
            row += (i == 0 ? "" : "|") + Column_Text(raw[i], type);
        }
        rows.push_back(row);
    }
    return rows;
}

void PlanRunner::Row_Update(const sql::RowUpdatePlan& plan, const std::vector<sql::Literal>& literals) {
    const auto matches = Raw(plan.match, literals, {}, {});
    const auto count = static_cast<std::size_t>(plan.tableCount);
    for (const auto& match : matches) {
        const std::vector<std::string> keys(match.begin(), match.begin() + static_cast<long>(count));
        // Every match again: it sees the row as the match before it left it.
        const auto values = Raw(plan.again, literals, keys, {});
        if (!values.empty()) Raw(plan.apply, literals, keys, values.front());
    }
}

std::vector<std::string> PlanRunner::Run(std::string_view statement) {
    const sql::LiftedStatement lifted = sql::Lift(statement);
    const sql::Plan plan = sql::Compile(statement, schema_);
    switch (plan.kind) {
        case sql::Plan::Kind::Select:
            return Rows(plan.select.rows, lifted.literals, plan.select.columns);
        case sql::Plan::Kind::CreateTable:
            Create(plan.create);
            return {};
        case sql::Plan::Kind::SelectInto:
            Create(plan.create);
            break;
        case sql::Plan::Kind::CreateIndex: {
            TableShape shape = *schema_.Find(plan.create.name);
            shape.indexes.push_back(plan.create.indexes[0]);
            schema_.Put(shape);
            std::string fields;
            for (const std::string& field : plan.create.indexes[0].fields) {
                fields += (fields.empty() ? "" : ",") + Name(field);
            }
            Exec(std::string("CREATE ") + (plan.create.indexes[0].unique ? "UNIQUE " : "") + "INDEX " +
                 Name(shape.name + "!" + plan.create.indexes[0].name) + " ON " + Name(shape.name) + "(" + fields + ")");
            return {};
        }
        case sql::Plan::Kind::DropTable:
            Exec("DROP TABLE " + Name(plan.create.name));
            schema_.Remove(plan.create.name);
            return {};
        case sql::Plan::Kind::RowUpdate:
            Row_Update(plan.rowUpdate, lifted.literals);
            return {};
        default:
            break;
    }
    return Rows(plan.sql, lifted.literals, {});
}

std::vector<std::string> PlanRunner::Find(std::string_view source, std::string_view criterion) {
    std::vector<sql::Literal> literals;
    if (!sql::Is_Table_Name(source)) literals = sql::Lift(source).literals;
    for (const sql::Literal& literal : sql::Lift(criterion).literals) literals.push_back(literal);
    return Rows(sql::Compile_Find(source, criterion, schema_), literals, {});
}

}  // namespace tallmar::test

namespace tallmar {
namespace {

using test::PlanRunner;

TEST(PlanRunner, KeepsTypesAndGivesErrorsBack) {
    PlanRunner runner;
    runner.Run("CREATE TABLE A (LineNum Currency, CCName Text(5))");
    runner.Run("INSERT INTO A VALUES (5.01, \"A&G\")");
    EXPECT_EQ(runner.Run("SELECT * FROM A"), std::vector<std::string>{"5.01|A&G"});
    EXPECT_THROW(runner.Run("SELECT LineNum/0 FROM A"), DbError);
}

}  // namespace
}  // namespace tallmar
