#include "db/prepared_statement.h"

#include <cmath>
#include <new>
#include <utility>

#include "db/session.h"

namespace tallmar::db_detail {

PreparedStatement::PreparedStatement(Session& session, std::string_view sql) : session_(&session) {
    const int result = sqlite3_prepare_v3(session.Handle(), sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &handle_, nullptr);
    if (result != SQLITE_OK) throw session.Failure(result);
    try {
        session.Note_Statement(handle_);
    } catch (...) {
        sqlite3_finalize(handle_);
        throw;
    }
}

// A session that has closed has ended its statements itself.
PreparedStatement::~PreparedStatement() {
    if (handle_ != nullptr) session_->End_Statement(handle_);
}

PreparedStatement::PreparedStatement(PreparedStatement&& other) noexcept {
    *this = std::move(other);
}

PreparedStatement& PreparedStatement::operator=(PreparedStatement&& other) noexcept {
    std::swap(session_, other.session_);
    std::swap(handle_, other.handle_);
    std::swap(running_, other.running_);
    std::swap(logged_, other.logged_);
    return *this;
}

void PreparedStatement::Bind(int index, NullValue) {
    if (session_->Log()) Record(index, Null);
    Check(sqlite3_bind_null(handle_, index));
}

void PreparedStatement::Bind(int index, std::int64_t value) {
    if (session_->Log()) Record(index, value);
    Check(sqlite3_bind_int64(handle_, index, value));
}

void PreparedStatement::Bind(int index, double value) {
    if (session_->Log()) Record(index, value);
    Check(sqlite3_bind_double(handle_, index, value));
}

void PreparedStatement::Bind(int index, std::string_view value) {
    if (session_->Log()) Record(index, std::string(value));
    // An empty view may have no address, and SQLite takes that for Null.
    const char* text = value.data() != nullptr ? value.data() : "";
    Check(sqlite3_bind_text64(handle_, index, text, value.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void PreparedStatement::Bind(int index, const StoredValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return Bind(index, std::string_view(*text));
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return Bind(index, *whole);
    if (const auto* real = std::get_if<double>(&value)) return Bind(index, *real);
    Bind(index, Null);
}

void PreparedStatement::Bind(int index, const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value.Get())) {
        Bind(index, std::string_view(*text));
    } else {
        Bind(index, To_Stored(value));
    }
}

void PreparedStatement::Bind(const std::vector<sql::Param>& params, const ParamSource& source) {
    for (std::size_t i = 0; i < params.size(); ++i) {
        const int index = static_cast<int>(i) + 1;
        const auto from = static_cast<std::size_t>(params[i].index);
        switch (params[i].from) {
            case sql::Param::From::Literal:
                Bind_Literal(index, source.literals[from], params[i].rep);
                break;
            case sql::Param::From::Key:
                if (source.keys[from] == kNoKey) {
                    Bind(index, Null);
                } else {
                    Bind(index, source.keys[from]);
                }
                break;
            case sql::Param::From::Column:
                Bind(index, source.columns[from]);
                break;
        }
    }
}

// Number literals know three forms; what a statement asks for beside them goes by the value.
void PreparedStatement::Bind_Literal(int index, const sql::Literal& literal, sql::Rep rep) {
    const bool number = literal.kind == sql::Literal::Kind::Integer || literal.kind == sql::Literal::Kind::Decimal ||
                        literal.kind == sql::Literal::Kind::Double;
    switch (rep) {
        case sql::Rep::None:
            return Bind(index, Null);
        case sql::Rep::Boolean:
            return Bind(index, std::int64_t{literal.number != 0 ? -1 : 0});
        case sql::Rep::Integer:
            if (number) return Bind(index, static_cast<std::int64_t>(std::nearbyint(literal.number)));
            return Bind(index, std::int64_t{literal.value.To_Long()});
        case sql::Rep::Currency: {
            if (literal.kind == sql::Literal::Kind::Integer) {
                return Bind(index, static_cast<std::int64_t>(literal.number) * Currency::kScale);
            }
            return Bind(index, literal.value.To_Currency().Scaled());
        }
        case sql::Rep::Double:
            return Bind(index, number ? literal.number : literal.value.To_Double());
        case sql::Rep::Date:
            if (const auto* date = std::get_if<Date>(&literal.value.Get())) return Bind(index, date->serial);
            return Bind(index, number ? literal.number : literal.value.To_Date().serial);
        case sql::Rep::Text:
            if (const auto* text = std::get_if<std::string>(&literal.value.Get())) {
                return Bind(index, std::string_view(*text));
            }
            Check(sqlite3_bind_text(handle_, index, literal.value.To_Text().c_str(), -1, SQLITE_TRANSIENT));
            if (session_->Log()) Record(index, literal.value.To_Text());
    }
}

bool PreparedStatement::Step() {
    if (!running_) {
        running_ = true;
        if (session_->Log()) Report();
    }
    const int result = sqlite3_step(handle_);
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    const DbError error = session_->Failure(result);
    Reset();
    throw error;
}

void PreparedStatement::Reset() {
    running_ = false;
    if (handle_ != nullptr && session_->Is_Open()) sqlite3_reset(handle_);
}

std::string_view PreparedStatement::Text(int column) const {
    if (Is_Null(column)) return {};
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_, column));
    if (text == nullptr) throw std::bad_alloc();
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle_, column))};
}

StoredValue PreparedStatement::Stored(int column) const {
    switch (sqlite3_column_type(handle_, column)) {
        case SQLITE_NULL:
            return Null;
        case SQLITE_INTEGER:
            return sqlite3_column_int64(handle_, column);
        case SQLITE_FLOAT:
            return sqlite3_column_double(handle_, column);
        default:
            return std::string(Text(column));
    }
}

namespace {
// From 1/1/100 to 12/31/9999: what a file holds beyond that, or as no number at all, no program of ours has written.

Value Read_Double(double number) {
    if (!std::isfinite(number)) return Null;
    return number;
}

Value Read_Date(double serial) {
    if (!Is_In_Calendar(serial)) return Null;
    return Date{serial};
}
}  // namespace

Value PreparedStatement::Read(int column, FieldType type) const {
    if (Is_Null(column)) return Null;
    switch (type) {
        case FieldType::Boolean:
            return Int(column) != 0;
        case FieldType::Byte:
        case FieldType::Integer:
        case FieldType::Long:
            return static_cast<std::int32_t>(Int(column));
        case FieldType::Currency:
            return Currency::From_Scaled(Int(column));
        case FieldType::Single:
        case FieldType::Double:
            return Read_Double(sqlite3_column_double(handle_, column));
        case FieldType::Date:
            return Read_Date(sqlite3_column_double(handle_, column));
        default:
            return Text(column);
    }
}

void PreparedStatement::Check(int result) {
    if (result != SQLITE_OK) throw session_->Failure(result);
}

void PreparedStatement::Record(int index, StoredValue value) {
    const auto place = static_cast<std::size_t>(index);
    if (logged_.size() < place) logged_.resize(place);
    logged_[place - 1] = std::move(value);
}

void PreparedStatement::Report() {
    logged_.resize(static_cast<std::size_t>(sqlite3_bind_parameter_count(handle_)));
    session_->Log()(sqlite3_sql(handle_), logged_);
}

}  // namespace tallmar::db_detail
