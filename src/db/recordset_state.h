// A recordset behind its handle.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/connection.h"
#include "db/recordset_type.h"
#include "db/row.h"

namespace tallmar::db_detail {

// The rows of a recordset and its clones: of a dynaset the keys of the base tables, row after row; of a snapshot the
// values as well. Rows that were deleted through the recordset keep their place, and moves pass over them.
class RowList {
  public:
    std::size_t keyCount = 0;
    std::size_t valueCount = 0;
    bool holdsValues = false;
    std::vector<std::int64_t> keys;
    std::vector<Value> values;

    std::int64_t Count() const { return count_; }
    void Append() { ++count_; }
    std::span<const std::int64_t> Keys(std::int64_t position) const {
        return {keys.data() + static_cast<std::size_t>(position) * keyCount, keyCount};
    }
    std::span<const Value> Values(std::int64_t position) const {
        return {values.data() + static_cast<std::size_t>(position) * valueCount, valueCount};
    }
    bool Is_Gone(std::int64_t position) const {
        return !gone_.empty() && static_cast<std::size_t>(position) < gone_.size() &&
               gone_[static_cast<std::size_t>(position)];
    }
    void Set_Gone(std::int64_t position);
    // Rows before `position` that are still there.
    std::int64_t Rank(std::int64_t position) const;
    // The position of the row with these keys; -1 where the recordset does not have it.
    std::int64_t Position_Of(std::span<const std::int64_t> wanted);

  private:
    bool Less(std::span<const std::int64_t> a, std::span<const std::int64_t> b) const;

    std::int64_t count_ = 0;
    std::vector<bool> gone_;
    std::vector<std::int64_t> byKey_;  // positions in key order, made when first needed
};

// The position past the last row: rows that are added do not bring it back.
inline constexpr std::int64_t kBehindLast = INT64_MAX;

enum class EditMode : std::uint8_t { None, AddNew, Edit };

struct RecordsetState {
    // Null once the recordset is closed. Declared before the plan, and so destroyed after it: the plan's statements end
    // through the connection.
    std::shared_ptr<Connection> connection;
    std::shared_ptr<CachedPlan> plan;
    std::string source;  // the SELECT, and its literals
    std::vector<sql::Literal> literals;
    RecordsetType type = RecordsetType::Dynaset;
    bool updatable = false;
    std::shared_ptr<RowList> rows;
    std::string index;  // of a table recordset

    std::int64_t position = 0;
    std::int64_t seen = 0;  // rows seen so far, the deleted ones among them
    bool noMatch = false;

    std::vector<Value> record;  // the current record, once it has been read
    bool recordRead = false;

    EditMode mode = EditMode::None;
    std::vector<Value> changes;
    std::vector<bool> changed;

    // Throws DatabaseClosed, or InvalidOperation on a closed recordset.
    Connection& Open() const;
    const sql::SelectPlan& Select() const { return plan->plan.select; }
    bool On_Record() const { return position >= 0 && position < rows->Count(); }
    // Leaves an edit under way; the record is read when it is asked for.
    void Go(std::int64_t to);
    // Reads the current record unless it has been read. Throws NoCurrentRecord.
    const std::vector<Value>& Record();
};

// Throws DbError on a source that is no SELECT and no table, and on a table recordset over a SELECT.
std::shared_ptr<RecordsetState> Open_Rows(const std::shared_ptr<Connection>& connection, std::string_view source,
                                          RecordsetType type);
// Hands on the rows of a SELECT, one after another, until `visit` answers False; the row without values that has
// their names.
Row Visit_Rows(Connection& connection, std::string_view select, const std::function<bool(Row)>& visit);

// The keys of a table's rows in the order of an index.
void Read_Keys_In_Index_Order(RecordsetState& state, const TableShape& table, const IndexDef& index);

}  // namespace tallmar::db_detail
