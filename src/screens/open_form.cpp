#include "screens/open_form.h"

#include <algorithm>
#include <utility>

#include "common/sql_text.h"
#include "common/variant.h"
#include "common/worksheets.h"
#include "db/convert.h"
#include "report/entry_age.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/cell_text.h"
#include "screens/form_columns.h"
#include "screens/lock_reasons.h"

namespace tallmar {

namespace {

constexpr BoxText kNotStored{"Entry Not Stored", "<text>"};
constexpr std::string_view kLineGone = "The line is no longer in the worksheet.";
// What the forms themselves never say: their grids lock such cells, or do not show them at all.
constexpr std::string_view kLockedTitle = "Locked Cell";
constexpr std::string_view kUnknownLineTitle = "Unknown Line";
// The electronic report is written in code page 1252.
constexpr std::string_view kForeignTitle = "Invalid Character Entry";
constexpr std::string_view kForeignText =
    "You're attempting to enter invalid data ['<text>'].  The electronic report cannot carry these "
    "characters: <characters>.  Your entry or modification is being discarded.  Select OK to continue.";

Refusal Locked_Refusal(std::string_view place, std::string_view reason) {
    return {.title = std::string(kLockedTitle),
            .text = Sql(place, " takes no entry: ", reason, "."),
            .brief = std::string(reason)};
}
Refusal Line_Refusal(std::string text) {
    return {.title = std::string(kUnknownLineTitle), .text = std::move(text)};
}
Refusal Foreign_Refusal(std::string_view text, const std::string& characters) {
    return {.title = std::string(kForeignTitle),
            .text = Replace(Replace(kForeignText, "<characters>", characters), "<text>", Trim(text)),
            .brief = "the electronic report cannot carry " + characters};
}

std::string_view Reason_Of(const GridColumn& column) {
    if (!column.why.empty()) return column.why;
    if (!column.number.empty()) return why::kComputed;
    if (column.label.empty()) return Begins_With(column.field, "Col_") ? why::kComputed : why::kNotOnForm;
    return Same_Text(column.field, "LineNum") ? why::kLineNumber : why::kWording;
}

std::string Where_Line(const FormDescription& form, Currency line) {
    return form.order.empty() ? std::string() : Sql(" WHERE LineNum = ", line);
}

}  // namespace

OpenForm::OpenForm(const FormDescription& form, Item item)
    : form_(form), item_(std::move(item)), table_(Form_Table(form, item_)) {
    Reload_Columns();
}

void OpenForm::Reload_Columns() {
    columns_ = Read_Columns(form_, item_);
}

const GridColumn* OpenForm::Find_Column(std::string_view column) const {
    column = Trim(column);
    const bool isNumber = !column.empty() && column.find_first_not_of("0123456789") == std::string_view::npos;
    const std::string field = isNumber ? Sql("Col_", column) : std::string(column);
    const auto found = std::ranges::find_if(columns_, [&](const GridColumn& c) { return Same_Text(c.field, field); });
    return found == columns_.end() ? nullptr : &*found;
}

std::string OpenForm::Line_Place(Currency line) const {
    const std::string worksheet = "Worksheet " + item_.Name();
    return form_.order.empty() ? worksheet : worksheet + ", line " + Line_Text(line);
}

std::string OpenForm::Cell_Place(const GridColumn& column, Currency line) const {
    return Line_Place(line) + ", column " + Head_Text(column, line);
}

bool OpenForm::Place_Cursor(Currency line) {
    ChangeMark mark = Change_Mark(db);
    Row row = db.Read_Row(Row_Query(form_, item_, line));
    if (!row && (form_.lines.next == nullptr || form_.lines.next(item_, line) != line)) return false;
    Place_Cursor(line, std::move(row), std::move(mark));
    return true;
}

void OpenForm::Place_Cursor(Currency line, Row row, ChangeMark mark) {
    row_ = RowUnderEdit(line, std::move(row));
    mark_ = std::move(mark);
    sidesBefore_.reset();
}

Refusal OpenForm::Why_No_Row(Currency line) const {
    const std::string place = Line_Place(line);
    if (db.Read_Row(Sql("SELECT * FROM ", table_, Where_Line(form_, line)))) {
        const auto notShown = form_.lines.notShown;
        return Locked_Refusal(place, notShown == nullptr ? why::kComputed : notShown(line));
    }
    if (form_.lines.next != nullptr) {
        if (const auto next = form_.lines.next(item_, line)) {
            return Line_Refusal(Sql("The next new line is ", Line_Text(*next), "."));
        }
    }
    return Line_Refusal(place + " does not exist and cannot be added.");
}

std::vector<const GridColumn*> OpenForm::Changed_Since(const RowUnderEdit& now) const {
    std::vector<const GridColumn*> changed;
    for (const auto& [field, value] : row_.Entered()) {
        const GridColumn* column = Find_Column(field);
        if (column != nullptr && now.Stored(field) != row_.Stored(field)) changed.push_back(column);
    }
    return changed;
}

bool OpenForm::Is_Changed_Elsewhere() const {
    if (!row_.Exists() || !Has_Entries() || Change_Mark(db) == mark_) return false;
    Row now = db.Read_Row(Row_Query(form_, item_, row_.Line()));
    return !now || !Changed_Since(RowUnderEdit(row_.Line(), std::move(now))).empty();
}

std::vector<const GridColumn*> OpenForm::Reload_Row() {
    if (!row_.Exists() || !Has_Entries()) return {};
    ChangeMark mark = Change_Mark(db);
    if (mark == mark_) return {};
    Row now = db.Read_Row(Row_Query(form_, item_, row_.Line()));
    if (!now) return {};
    RowUnderEdit row(row_.Line(), std::move(now));
    const std::vector<const GridColumn*> changed = Changed_Since(row);
    for (const auto& [field, value] : row_.Entered()) row.Set(field, value);
    row_ = std::move(row);
    mark_ = std::move(mark);
    return changed;
}

std::string_view OpenForm::Why_Locked(const GridColumn& column, const RowUnderEdit& row) const {
    if (form_.readOnly) return why::kView;
    if (column.kind == CellKind::Shown || column.hidden) return Reason_Of(column);
    const CellRules& rules = form_.cells;
    const CellPlace place{item_, column, row};
    if (rules.locked != nullptr) {
        if (const std::string_view reason = rules.locked(place); !reason.empty()) return reason;
    }
    if (rules.nullIsShaded && !Takes_Text(column.kind) && row.Stored(column.field).Is_Null()) return why::kShaded;
    if (rules.closed == nullptr || !Is_Blank(row[column.field])) return {};
    return rules.closed(place);
}

CellResult OpenForm::Check(const CellPlace& place, std::string_view text) const {
    const GridColumn& column = place.column;
    CellResult result = column.kind == CellKind::Own ? form_.cells.check(place, text) : Validate_Cell(place, text);
    if (result.refusal) return result;
    if (result.value.Is<std::string>()) {
        const std::string foreign = Outside_Cp1252(result.value.To_Text());
        if (!foreign.empty()) {
            result.refusal = Foreign_Refusal(text, foreign);
            return result;
        }
    }
    try {
        result.value =
            Convert_For_Field(result.value, {.name = column.field, .type = column.type, .size = column.size});
    } catch (const DbError& error) {
        const bool isTooLarge = error.Code() == DbErrorCode::Overflow;
        return isTooLarge ? Refuse(kTooLarge, {.text = text}) : Refuse(kNotStored, {.text = error.Description()});
    }
    return result;
}

std::optional<Refusal> OpenForm::Enter(const GridColumn& column, std::string_view text, const EntryTalk& talk) {
    const CellPlace place{item_, column, row_, talk};
    std::string_view reason = Why_Locked(column, row_);
    if (reason.empty() && form_.cells.closed != nullptr && !Is_Blank_Text(text)) reason = form_.cells.closed(place);
    if (!reason.empty()) return Locked_Refusal(Cell_Place(column, row_.Line()), reason);
    if (!sidesBefore_ && !form_.rows.sides.empty()) sidesBefore_ = Read_Sides(form_.rows.sides, row_.Line());
    CellResult result = Check(place, text);
    if (result.refusal) return std::move(result.refusal);
    row_.Set(column.field, std::move(result.value));
    for (auto& [field, value] : result.filled) row_.Set(field, std::move(value));
    return std::nullopt;
}

std::optional<Refusal> OpenForm::May_Leave(const EntryTalk& talk) const {
    return form_.rows.leave == nullptr ? std::nullopt : form_.rows.leave(Place_Of(row_, talk));
}

std::optional<Refusal> OpenForm::Store_Row(const EntryTalk& talk) {
    if (!Has_Entries()) return std::nullopt;
    if (std::optional<Refusal> refusal = May_Leave(talk)) return refusal;
    RowUnderEdit stored;
    if (std::optional<Refusal> refusal = Write_Row(stored)) return refusal;
    try {
        if (form_.rows.stored != nullptr) form_.rows.stored(Place_Of(stored, talk));
    } catch (const DbError&) {
        Row_Written(stored);
        throw;
    }
    Row_Written(stored);
    return std::nullopt;
}

std::optional<Refusal> OpenForm::Write_Row(RowUnderEdit& stored) {
    std::string update = Sql("UPDATE ", table_, " SET ");
    std::string_view separator;
    for (const auto& [field, value] : row_.Entered()) {
        update += Sql(separator, field, "=", value);
        separator = ", ";
    }
    try {
        const bool isStored = form_.rows.store != nullptr && form_.rows.store(Place_Of(row_, {}));
        if (!row_.Exists()) {
            const NewRow& newRow = form_.lines.newRow;
            const std::string_view comma = newRow.fields.empty() ? "" : ", ";
            db.Execute(Sql("INSERT INTO ", table_, " (LineNum", comma, newRow.fields, ") VALUES (", row_.Line(), comma,
                           newRow.values, ");"));
            if (form_.lines.made != nullptr) form_.lines.made(item_, row_.Line());
        }
        if (!isStored && db.Execute(Sql(update, Where_Line(form_, row_.Line()), ";")) == 0)
            return Fill_Box(kNotStored, {.text = kLineGone});
    } catch (const DbError& error) {
        return Fill_Box(kNotStored, {.text = error.Description()});
    }
    Note_Entries();
    stored = std::exchange(row_, {});
    changed_ = true;
    return std::nullopt;
}

void OpenForm::Row_Written(const RowUnderEdit& stored) {
    StoredChange change{.line = stored.Line()};
    if (auto sides = std::exchange(sidesBefore_, std::nullopt)) change.sidesBefore = std::move(*sides);
    if (!Place_Cursor(stored.Line()) || !row_.Exists()) {
        row_ = {};
        return;
    }
    if (!stored.Exists()) {
        change.rows = Row_That_Came(table_, stored.Line(), row_.Stored());
        return Tell(std::move(change));
    }
    for (const auto& [field, entered] : stored.Entered()) {
        const Value& before = stored.Stored(field);
        if (before != row_[field]) change.cells.push_back({field, before, row_[field]});
    }
    // What was typed again as it was is no change.
    if (!change.cells.empty() || !change.sidesBefore.empty()) Tell(std::move(change));
}

void OpenForm::Tell(StoredChange change) const {
    if (listener_.stored) listener_.stored(std::move(change));
}

// Names that a number fills in beside it are no entries, nor is a table that is no worksheet.
void OpenForm::Note_Entries() const {
    if (Find_Family(item_) == nullptr) return;
    if (!row_.Exists()) openReport.entryAge.Row_Added_Or_Removed(table_, row_.Line());
    for (const auto& [field, value] : row_.Entered()) {
        const GridColumn* column = Find_Column(field);
        if (column == nullptr || column->kind == CellKind::Shown) continue;
        openReport.entryAge.Cell_Stored(table_, row_.Line(), field, row_.Stored(field), value);
    }
}

void OpenForm::Note_Rows(const TableChange& change) const {
    if (Find_Family(item_) == nullptr) return;
    for (const RowChange& row : change.rows) {
        if (row.before.empty() != row.after.empty()) openReport.entryAge.Row_Added_Or_Removed(table_, row.line);
    }
}

DiscardedRow OpenForm::Discard_Row() {
    DiscardedRow discarded{.line = row_.Line(), .entries = row_.Entered()};
    // A check may have written beside the table.
    if (const auto before = std::exchange(sidesBefore_, std::nullopt)) {
        discarded.sides = Differences(*before, Read_Sides(form_.rows.sides, row_.Line()));
        for (const TableChange& change : discarded.sides) Put_Back(change);
    }
    row_ = {};
    return discarded;
}

bool OpenForm::Restore_Row(const DiscardedRow& discarded) {
    if (!Place_Cursor(discarded.line) || !row_.Exists()) return false;
    if (!form_.rows.sides.empty()) sidesBefore_ = Read_Sides(form_.rows.sides, discarded.line);
    for (const TableChange& change : discarded.sides) Put_Back(Reversed(change));
    for (const auto& [field, value] : discarded.entries) row_.Set(field, value);
    return true;
}

// Of the rows that the form shows; what is behind them follows from them.
Currency OpenForm::Add_Row(Currency current) {
    Job job(db);
    const TableState before = Read_State(table_, form_.where);
    const Currency line = form_.lines.add(item_, current);
    job.Keep();
    StoredChange change{.line = line, .what = Sql("line ", Line_Text(line), " added")};
    change.rows = Difference(before, Read_State(table_, form_.where));
    Note_Rows(*change.rows);
    Tell(std::move(change));
    return line;
}

bool OpenForm::Remove_Row(Currency line, const EntryTalk& talk) {
    if (form_.lines.mayRemove != nullptr && !form_.lines.mayRemove(item_, line, talk)) return false;
    Job job(db);
    const TableState before = Read_State(table_, form_.where);
    const std::vector<TableState> sides = Read_Sides(form_.rows.sides, line);
    form_.lines.remove(item_, line);
    job.Keep();
    StoredChange change{.line = line, .what = Sql("line ", Line_Text(line), " removed")};
    change.rows = Difference(before, Read_State(table_, form_.where));
    // A line of the form's own stays.
    if (change.rows->rows.empty()) return true;
    change.sides = Differences(sides, Read_Sides(form_.rows.sides, line));
    Note_Rows(*change.rows);
    Tell(std::move(change));
    return true;
}

std::optional<Refusal> OpenForm::Put_Back_Cells(const FormerValues& values) {
    for (const auto& [column, value] : values) row_.Set(column->field, value);
    const EntryTalk talk;
    if (form_.rows.mayUndo != nullptr && !form_.rows.mayUndo(Place_Of(row_, talk))) {
        return Refusal{.title = {}, .text = "nothing was taken back.", .shown = true};
    }
    if (std::optional<Refusal> refusal = May_Leave(talk)) return refusal;
    if (!Has_Entries()) return std::nullopt;
    RowUnderEdit stored;
    if (std::optional<Refusal> refusal = Write_Row(stored)) return refusal;
    if (form_.rows.stored != nullptr) form_.rows.stored(Place_Of(stored, talk));
    return std::nullopt;
}

void OpenForm::Put_Back_Rows(const TableChange& change) {
    Put_Back(change);
    Note_Rows(change);
    changed_ = true;
}

void OpenForm::Follow_Changes() {
    if (std::exchange(changed_, false) && form_.rows.follow != nullptr) form_.rows.follow();
    if (listener_.followed) listener_.followed();
}

std::vector<std::string> OpenForm::Close() {
    Follow_Changes();
    return form_.rows.closing == nullptr ? std::vector<std::string>() : form_.rows.closing(item_);
}

}  // namespace tallmar
