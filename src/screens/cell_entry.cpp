#include "screens/cell_entry.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "common/platform.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "common/worksheets.h"
#include "db/convert.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/cell_place.h"
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

CellOutcome Refused(Refusal refusal) {
    return {false, std::move(refusal.title), std::move(refusal.text), refusal.shown, std::move(refusal.brief)};
}
CellOutcome Refused(const BoxText& box, std::string_view text) {
    return Refused(Fill_Box(box, {.text = text}));
}
CellOutcome Refused_Locked(std::string_view place, std::string_view reason) {
    return Refused(Refusal{.title = std::string(kLockedTitle),
                           .text = Sql(place, " takes no entry: ", reason, "."),
                           .brief = std::string(reason)});
}
CellOutcome Refused_Line(std::string text) {
    return Refused(Refusal{.title = std::string(kUnknownLineTitle), .text = std::move(text)});
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

void Show_Refusal(const CellOutcome& outcome) {
    if (outcome.stored || outcome.shown) return;
    The_Platform().Beep();
    The_Platform().Message_Box(outcome.text, kStop, outcome.title);
}

OpenForm::OpenForm(const FormDescription& form, Item item)
    : form_(form), item_(std::move(item)), table_(Form_Table(form, item_)) {
    Read_Columns();
}

void OpenForm::Read_Columns() {
    std::vector<GridColumn> described;
    for (const FormColumn& column : form_.columns) {
        described.push_back({.field = std::string(column.field),
                             .number = std::string(column.number),
                             .label = std::string(column.label),
                             .format = std::string(column.format),
                             .kind = column.kind,
                             .limit = column.limit,
                             .why = std::string(column.why),
                             .tag = {}});
    }
    if (form_.moreColumns != nullptr) std::ranges::move(form_.moreColumns(item_), std::back_inserter(described));

    const TableDef table = db.TableDefs().Item(table_);
    columns_.clear();
    for (const FieldDef& field : table.Shape().fields) {
        GridColumn column{.field = field.name, .number = {}, .label = {}, .format = {}, .hidden = true, .tag = {}};
        const auto found =
            std::ranges::find_if(described, [&](const GridColumn& c) { return Same_Text(c.field, field.name); });
        if (found != described.end()) {
            column = std::move(*found);
            if (form_.hidden != nullptr) {
                const std::string_view why = form_.hidden(field.name);
                column.hidden = !why.empty();
                if (column.hidden) column.why = why;
            }
        }
        column.type = field.type;
        column.size = field.size;
        columns_.push_back(std::move(column));
    }
}

const GridColumn* OpenForm::Find_Column(std::string_view column) const {
    column = Trim(column);
    const bool isNumber = !column.empty() && column.find_first_not_of("0123456789") == std::string_view::npos;
    const std::string field = isNumber ? Sql("Col_", column) : std::string(column);
    const auto found = std::ranges::find_if(columns_, [&](const GridColumn& c) { return Same_Text(c.field, field); });
    return found == columns_.end() ? nullptr : &*found;
}

bool OpenForm::Go_To(Currency line) {
    Row row = db.Read_Row(Row_Query(form_, item_, line));
    if (!row && (form_.nextLine == nullptr || form_.nextLine(item_, line) != line)) return false;
    row_ = RowUnderEdit(line, std::move(row));
    sidesBefore_.reset();
    return true;
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
    if (!row_.Exists() || !Has_Entries()) return false;
    Row now = db.Read_Row(Row_Query(form_, item_, row_.Line()));
    return !now || !Changed_Since(RowUnderEdit(row_.Line(), std::move(now))).empty();
}

std::vector<const GridColumn*> OpenForm::Reread_Row() {
    if (!row_.Exists() || !Has_Entries()) return {};
    Row now = db.Read_Row(Row_Query(form_, item_, row_.Line()));
    if (!now) return {};
    RowUnderEdit row(row_.Line(), std::move(now));
    const std::vector<const GridColumn*> changed = Changed_Since(row);
    for (const auto& [field, value] : row_.Entered()) row.Set(field, value);
    row_ = std::move(row);
    return changed;
}

CellOutcome OpenForm::Without_Row(Currency line) const {
    const std::string place = Line_Place(*this, line);
    if (db.Read_Row(Sql("SELECT * FROM ", table_, Where_Line(form_, line)))) {
        return Refused_Locked(place, form_.notShown == nullptr ? why::kComputed : form_.notShown(line));
    }
    if (form_.nextLine != nullptr) {
        if (const auto next = form_.nextLine(item_, line)) {
            return Refused_Line(Sql("The next new line is ", Line_Text(*next), "."));
        }
    }
    return Refused_Line(place + " does not exist and cannot be added.");
}

std::string_view OpenForm::Why_Locked(const GridColumn& column, const RowUnderEdit& row) const {
    if (form_.readOnly) return why::kView;
    if (column.kind == CellKind::Shown || column.hidden) return Reason_Of(column);
    const CellPlace place{item_, column, row};
    if (form_.locked != nullptr) {
        if (const std::string_view reason = form_.locked(place); !reason.empty()) return reason;
    }
    if (form_.nullIsShaded && !Takes_Text(column.kind) && row.Stored(column.field).Is_Null()) return why::kShaded;
    if (form_.closed == nullptr || !Is_Blank(row[column.field])) return {};
    return form_.closed(place);
}

CellOutcome OpenForm::Enter(const GridColumn& column, std::string_view text) {
    const CellPlace place{item_, column, row_};
    std::string_view reason = Why_Locked(column, row_);
    if (reason.empty() && form_.closed != nullptr && !Is_Blank_Text(text)) reason = form_.closed(place);
    if (!reason.empty()) return Refused_Locked(Cell_Place(*this, column, row_.Line()), reason);
    if (!sidesBefore_ && !form_.sides.empty()) sidesBefore_ = Read_Sides(form_.sides, row_.Line());
    CellResult result = column.kind == CellKind::Own ? form_.check(place, text) : Validate_Cell(column, text);
    if (result.refusal) return Refused(std::move(*result.refusal));
    if (result.value.Is<std::string>()) {
        if (const std::string foreign = Outside_Cp1252(result.value.To_Text()); !foreign.empty()) {
            return Refused(
                Refusal{.title = std::string(kForeignTitle),
                        .text = Replace(Replace(kForeignText, "<characters>", foreign), "<text>", Trim(text)),
                        .brief = "the electronic report cannot carry " + foreign});
        }
    }
    try {
        result.value =
            Convert_For_Field(result.value, {.name = column.field, .type = column.type, .size = column.size});
    } catch (const DbError& error) {
        if (error.Code() == DbErrorCode::Overflow) return Refused(kTooLarge, text);
        return Refused(kNotStored, error.Description());
    }
    row_.Set(column.field, std::move(result.value));
    for (auto& [field, value] : result.filled) row_.Set(field, std::move(value));
    return {};
}

CellOutcome OpenForm::Leave_Row() {
    if (!Has_Entries()) return {};
    if (form_.leaveRow != nullptr) {
        if (std::optional<Refusal> refusal = form_.leaveRow(item_, row_)) return Refused(std::move(*refusal));
    }
    RowUnderEdit stored;
    CellOutcome outcome = Store_Row(stored);
    if (!outcome.stored) return outcome;
    try {
        if (form_.rowStored != nullptr) form_.rowStored(item_, stored, columns_);
    } catch (const DbError&) {
        Record_Row(stored);
        throw;
    }
    Record_Row(stored);
    return outcome;
}

CellOutcome OpenForm::Store_Row(RowUnderEdit& stored) {
    std::string update = Sql("UPDATE ", table_, " SET ");
    std::string_view separator;
    for (const auto& [field, value] : row_.Entered()) {
        update += Sql(separator, field, "=", value);
        separator = ", ";
    }
    try {
        const bool isStored = form_.storeRow != nullptr && form_.storeRow(row_);
        if (!row_.Exists()) {
            const std::string_view comma = form_.newRow.fields.empty() ? "" : ", ";
            db.Execute(Sql("INSERT INTO ", table_, " (LineNum", comma, form_.newRow.fields, ") VALUES (", row_.Line(),
                           comma, form_.newRow.values, ");"));
            if (form_.rowMade != nullptr) form_.rowMade(item_, row_.Line());
        }
        if (!isStored && db.Execute(Sql(update, Where_Line(form_, row_.Line()), ";")) == 0)
            return Refused(kNotStored, kLineGone);
    } catch (const DbError& error) {
        return Refused(kNotStored, error.Description());
    }
    Note_Entries();
    stored = std::exchange(row_, {});
    changed_ = true;
    return {};
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

GivenUpRow OpenForm::Cancel_Row() {
    GivenUpRow given{row_.Line(), row_.Entered(), {}};
    // A check may have written beside the table.
    if (const auto before = std::exchange(sidesBefore_, std::nullopt)) {
        given.sides = Differences(*before, Read_Sides(form_.sides, row_.Line()));
        for (const TableChange& change : given.sides) Put_Back(change);
    }
    row_ = {};
    return given;
}

bool OpenForm::Enter_Again(const GivenUpRow& given) {
    if (!Go_To(given.line) || !row_.Exists()) return false;
    if (!form_.sides.empty()) sidesBefore_ = Read_Sides(form_.sides, given.line);
    for (const TableChange& change : given.sides) Put_Back(Reversed(change));
    for (const auto& [field, value] : given.entries) row_.Set(field, value);
    return true;
}

void OpenForm::Follow_Changes() {
    if (std::exchange(changed_, false) && form_.follow != nullptr) form_.follow();
    Settle_Sides();
}

std::vector<std::string> OpenForm::Close() {
    Follow_Changes();
    return form_.closing == nullptr ? std::vector<std::string>() : form_.closing(item_);
}

}  // namespace tallmar
