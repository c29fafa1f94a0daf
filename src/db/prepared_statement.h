// A prepared SQLite statement: bound, stepped, read, reset.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "common/value.h"
#include "db/stored_value.h"
#include "sql/plan.h"

namespace tallmar::db_detail {

class Session;

// The key of the missing side of an outer join.
inline constexpr std::int64_t kNoKey = INT64_MIN;

// What a recipe may draw its parameters from.
struct ParamSource {
    std::span<const sql::Literal> literals;
    std::span<const std::int64_t> keys;      // one a base table
    std::span<const StoredValue> columns{};  // new values of a match
};

// Texts are bound without a copy: what was bound must exist until the statement is reset.
class PreparedStatement {
  public:
    PreparedStatement() = default;
    PreparedStatement(Session& session, std::string_view sql);
    ~PreparedStatement();
    PreparedStatement(PreparedStatement&& other) noexcept;
    PreparedStatement& operator=(PreparedStatement&& other) noexcept;

    explicit operator bool() const { return handle_ != nullptr; }

    // Parameters count from 1.
    void Bind(int index, NullValue);
    void Bind(int index, std::int64_t value);
    void Bind(int index, double value);
    void Bind(int index, std::string_view value);
    void Bind(int index, const StoredValue& value);
    // By the value's own kind.
    void Bind(int index, const Value& value);
    void Bind(const std::vector<sql::Param>& params, const ParamSource& source);

    // True while there is a row. Throws DbError; the statement is reset then.
    bool Step();
    void Reset();

    // Columns of the row, from 0.
    int Columns() const { return sqlite3_column_count(handle_); }
    bool Is_Null(int column) const { return sqlite3_column_type(handle_, column) == SQLITE_NULL; }
    std::int64_t Int(int column) const { return sqlite3_column_int64(handle_, column); }
    std::string_view Text(int column) const;
    StoredValue Stored(int column) const;
    Value Read(int column, FieldType type) const;

  private:
    void Bind_Literal(int index, const sql::Literal& literal, sql::Rep rep);
    void Check(int result);
    void Record(int index, StoredValue value);
    void Report();

    Session* session_ = nullptr;
    sqlite3_stmt* handle_ = nullptr;
    bool running_ = false;
    std::vector<StoredValue> logged_;
};

// Resets the statement at the end of a block, however it is left.
class Running {
  public:
    explicit Running(PreparedStatement& statement) : statement_(statement) {}
    ~Running() { statement_.Reset(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    PreparedStatement& statement_;
};

}  // namespace tallmar::db_detail
