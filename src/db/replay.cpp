#include "db/replay.h"

#include <sqlite3.h>

#include <unordered_map>

#include "db/connection.h"
#include "db/statement_log.h"

namespace tallmar {

namespace {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Prepared = std::unique_ptr<sqlite3_stmt, Finalize>;

void Bind(sqlite3_stmt* statement, int index, const StoredValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        sqlite3_bind_int64(statement, index, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
        sqlite3_bind_double(statement, index, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
    } else {
        sqlite3_bind_null(statement, index);
    }
}

}  // namespace

struct Replay::State {
    Database database;
    sqlite3* handle = nullptr;
    std::vector<LoggedStatement> statements;
    std::unordered_map<std::string, Prepared> prepared;
    std::vector<sqlite3_stmt*> inOrder;  // of `statements`, known after the first run

    sqlite3_stmt* Prepare(const std::string& sql) {
        Prepared& statement = prepared[sql];
        if (!statement) {
            sqlite3_stmt* raw = nullptr;
            Check(sqlite3_prepare_v3(handle, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &raw, nullptr));
            statement.reset(raw);
        }
        return statement.get();
    }

    void Check(int result) const {
        if (result != SQLITE_OK) throw DbError(DbErrorCode::Engine, sqlite3_errmsg(handle));
    }
};

std::vector<LoggedStatement> Record_Statements(Database& database, const std::function<void()>& work) {
    std::vector<LoggedStatement> statements;
    const auto record = [&](std::string_view sql, const std::vector<StoredValue>& parameters) {
        statements.push_back({std::string(sql), parameters});
    };
    Set_Statement_Log(database, record);
    try {
        work();
    } catch (...) {
        Set_Statement_Log(database, {});
        throw;
    }
    Set_Statement_Log(database, {});
    return statements;
}

Replay::Replay(Database& database, std::vector<LoggedStatement> statements) : state_(std::make_unique<State>()) {
    state_->database = database;
    state_->handle = db_detail::Access::Of(database).Handle();
    state_->statements = std::move(statements);
}

Replay::~Replay() = default;

void Replay::Run() {
    const bool cold = state_->inOrder.empty();
    for (std::size_t i = 0; i < state_->statements.size(); ++i) {
        const LoggedStatement& logged = state_->statements[i];
        if (cold) state_->inOrder.push_back(state_->Prepare(logged.sql));
        sqlite3_stmt* const statement = state_->inOrder[i];
        int index = 0;
        for (const StoredValue& value : logged.parameters) Bind(statement, ++index, value);
        while (sqlite3_step(statement) == SQLITE_ROW) {
        }
        state_->Check(sqlite3_reset(statement));
    }
}

std::size_t Replay::Statements() const {
    return state_->statements.size();
}

std::size_t Replay::Distinct_Statements() const {
    return state_->prepared.size();
}

}  // namespace tallmar
