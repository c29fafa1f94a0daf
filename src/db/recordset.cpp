#include <algorithm>

#include "common/text.h"
#include "db/database.h"
#include "db/recordset_state.h"

namespace tallmar {

using namespace db_detail;

namespace {

// A recordset that was closed has no rows; what is asked of it is an error.
RecordsetState& Opened(const std::shared_ptr<RecordsetState>& state) {
    state->Open();
    return *state;
}

enum class Side : std::int64_t { Before = -1, Behind = 1 };

// The next row from `from` in the direction, itself included, that has not been deleted; before the first or behind the
// last where there is none.
std::int64_t Skip_Gone(const RowList& rows, std::int64_t from, Side direction) {
    while (from >= 0 && from < rows.Count() && rows.Is_Gone(from)) from += static_cast<std::int64_t>(direction);
    return from;
}

}  // namespace

bool Recordset::Eof() const {
    const RecordsetState& state = Opened(state_);
    return state.position >= state.rows->Count() || state.rows->Rank(state.rows->Count()) == 0;
}

bool Recordset::Bof() const {
    const RecordsetState& state = Opened(state_);
    return state.position < 0 || state.rows->Rank(state.rows->Count()) == 0;
}

bool Recordset::NoMatch() const {
    return Opened(state_).noMatch;
}

std::int64_t Recordset::RecordCount() const {
    const RecordsetState& state = Opened(state_);
    return state.rows->Rank(std::min(state.seen, state.rows->Count()));
}

std::int64_t Recordset::AbsolutePosition() const {
    const RecordsetState& state = Opened(state_);
    return state.On_Record() ? state.rows->Rank(state.position) : -1;
}

void Recordset::AbsolutePosition(std::int64_t position) {
    RecordsetState& state = Opened(state_);
    const RowList& rows = *state.rows;
    if (position < 0 || position >= rows.Rank(rows.Count())) throw DbError(DbErrorCode::NoCurrentRecord);
    std::int64_t place = Skip_Gone(rows, 0, Side::Behind);
    for (; position > 0; --position) place = Skip_Gone(rows, place + 1, Side::Behind);
    state.Go(place);
}

Recordset::BookmarkValue Recordset::Bookmark() const {
    const RecordsetState& state = Opened(state_);
    if (!state.On_Record()) throw DbError(DbErrorCode::NoCurrentRecord);
    return {state.position};
}

void Recordset::Bookmark(BookmarkValue bookmark) {
    RecordsetState& state = Opened(state_);
    if (bookmark.position < 0 || bookmark.position >= state.rows->Count()) throw DbError(DbErrorCode::NoCurrentRecord);
    state.Go(bookmark.position);
}

Recordset Recordset::Clone() const {
    auto copy = std::make_shared<RecordsetState>(Opened(state_));
    copy->mode = EditMode::None;
    copy->noMatch = false;
    copy->Go(Skip_Gone(*copy->rows, 0, Side::Behind));
    return Recordset(std::move(copy));
}

void Recordset::MoveFirst() {
    RecordsetState& state = Opened(state_);
    const std::int64_t place = Skip_Gone(*state.rows, 0, Side::Behind);
    if (place >= state.rows->Count()) throw DbError(DbErrorCode::NoCurrentRecord);
    state.Go(place);
}

void Recordset::MoveLast() {
    RecordsetState& state = Opened(state_);
    const std::int64_t place = Skip_Gone(*state.rows, state.rows->Count() - 1, Side::Before);
    if (place < 0) throw DbError(DbErrorCode::NoCurrentRecord);
    state.seen = state.rows->Count();
    state.Go(place);
}

void Recordset::MoveNext() {
    RecordsetState& state = Opened(state_);
    if (state.position >= state.rows->Count()) throw DbError(DbErrorCode::NoCurrentRecord);
    state.Go(Skip_Gone(*state.rows, state.position + 1, Side::Behind));
}

void Recordset::MovePrevious() {
    RecordsetState& state = Opened(state_);
    if (state.position < 0 || state.rows->Count() == 0) throw DbError(DbErrorCode::NoCurrentRecord);
    state.Go(Skip_Gone(*state.rows, std::min(state.position, state.rows->Count()) - 1, Side::Before));
}

// The index gives the order of the rows, too.
void Recordset::Index(std::string_view name) {
    RecordsetState& state = Opened(state_);
    if (state.type != RecordsetType::Table) throw DbError(DbErrorCode::InvalidOperation, name);
    const std::string& table = state.Select().tables.at(0);
    const TableShape* shape = state.connection->Shapes().Find(table);
    if (shape == nullptr) throw DbError(DbErrorCode::UnknownTable, table);
    const IndexDef* index = shape->Find_Index(name);
    if (index == nullptr) throw DbError(DbErrorCode::UnknownIndex, name);
    state.index = index->name;
    Read_Keys_In_Index_Order(state, *shape, *index);
    state.seen = 0;
    state.Go(0);
}

// The connection goes last: the plan's statements end through it, and the recordset may be its last owner.
void Recordset::Close() {
    Opened(state_);
    state_->record.clear();
    state_->rows.reset();
    state_->plan.reset();
    state_->connection.reset();
}

int Recordset::Fields_Count() const {
    return static_cast<int>(Opened(state_).Select().columns.size());
}

// The very letters are the rule; they are tried first.
Field Recordset::Fields(std::string_view name) const {
    const auto& columns = Opened(state_).Select().columns;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].name == name) return Field(state_, static_cast<int>(i));
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (Same_Text(columns[i].name, name)) return Field(state_, static_cast<int>(i));
    }
    throw DbError(DbErrorCode::ItemNotFound, name);
}

Field Recordset::Fields(int position) const {
    if (position < 0 || position >= Fields_Count()) throw DbError(DbErrorCode::ItemNotFound, std::to_string(position));
    return Field(state_, position);
}

const std::string& Field::Name() const {
    return Opened(state_).Select().columns[static_cast<std::size_t>(position_)].name;
}

FieldType Field::Type() const {
    return Opened(state_).Select().columns[static_cast<std::size_t>(position_)].type;
}

int Field::Size() const {
    return Opened(state_).Select().columns[static_cast<std::size_t>(position_)].size;
}

Value Field::Value() const {
    RecordsetState& state = Opened(state_);
    const auto place = static_cast<std::size_t>(position_);
    if (state.mode != EditMode::None && state.changed[place]) return state.changes[place];
    if (state.mode == EditMode::AddNew) return Null;
    return state.Record()[place];
}

}  // namespace tallmar
