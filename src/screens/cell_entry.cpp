#include "screens/cell_entry.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <tuple>
#include <utility>

#include "common/db/convert.h"
#include "common/db/sql_text.h"
#include "common/platform.h"
#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/cell_check.h"
#include "screens/cell_place.h"

namespace tallmar {

namespace {

// What the forms themselves never say: their grids shut such cells, or do not show them at all.
constexpr BoxText kLockedCell{"Locked Cell", "<text> is shaded or computed on the form and takes no entry.",
                              "shaded or computed on the form"};
constexpr BoxText kUnknownLine{"Unknown Line", "<text> does not exist and cannot be added."};
constexpr BoxText kInvalidLine{"Invalid Line", "'<text>' is no line number."};
constexpr BoxText kUnknownColumn{"Unknown Column", "<text> does not exist."};
constexpr BoxText kUnknownWorksheet{"Unknown Worksheet", "The report has no worksheet '<text>'."};
constexpr BoxText kNoEditForm{"No Edit Form", "Worksheet <text> has no edit form."};
constexpr BoxText kNotStored{"Entry Not Stored", "<text>"};
constexpr std::string_view kLineGone = "The line is no longer in the worksheet.";

CellOutcome Refused(Refusal refusal) {
    return {false, std::move(refusal.title), std::move(refusal.text), refusal.shown, std::move(refusal.brief)};
}
CellOutcome Refused(const BoxText& box, std::string_view text) {
    return Refused(Fill_Box(box, {.text = text}));
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
            column.hidden = form_.hidden != nullptr && form_.hidden(field.name);
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
    if (!row && (form_.canMake == nullptr || !form_.canMake(line))) return false;
    row_ = RowUnderEdit(line, std::move(row));
    sidesBefore_.reset();
    return true;
}

std::vector<const GridColumn*> OpenForm::Reread_Row() {
    std::vector<const GridColumn*> changed;
    if (!row_.Exists() || !Has_Entries()) return changed;
    Row now = db.Read_Row(Row_Query(form_, item_, row_.Line()));
    if (!now) return changed;
    RowUnderEdit row(row_.Line(), std::move(now));
    for (const auto& [field, value] : row_.Entered()) {
        const GridColumn* column = Find_Column(field);
        if (column != nullptr && row.Stored(field) != row_.Stored(field)) changed.push_back(column);
        row.Set(field, value);
    }
    row_ = std::move(row);
    return changed;
}

bool OpenForm::Is_Locked(const GridColumn& column, const RowUnderEdit& row) const {
    if (form_.readOnly || column.kind == CellKind::Shown || column.hidden) return true;
    if (form_.nullIsShaded && column.kind != CellKind::Text && row.Stored(column.field).Is_Null()) return true;
    return form_.locked != nullptr && form_.locked({item_, column, row});
}

CellOutcome OpenForm::Enter(const GridColumn& column, std::string_view text) {
    if (Is_Locked(column)) {
        return Refused(kLockedCell, Cell_Place(*this, column, row_.Line()));
    }
    if (!sidesBefore_ && !form_.sides.empty()) sidesBefore_ = Read_Sides(form_.sides, row_.Line());
    CellResult result =
        column.kind == CellKind::Own ? form_.check({item_, column, row_}, text) : Validate_Cell(column, text);
    if (result.refusal) return Refused(std::move(*result.refusal));
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
        }
        if (!isStored && db.Execute(Sql(update, Where_Line(form_, row_.Line()), ";")) == 0)
            return Refused(kNotStored, kLineGone);
    } catch (const DbError& error) {
        return Refused(kNotStored, error.Description());
    }
    stored = std::exchange(row_, {});
    changed_ = true;
    return {};
}

void OpenForm::Cancel_Row() {
    // A check may have written beside the table.
    if (const auto before = std::exchange(sidesBefore_, std::nullopt)) {
        for (const TableChange& change : Differences(*before, Read_Sides(form_.sides, row_.Line()))) Put_Back(change);
    }
    row_ = {};
}

void OpenForm::Follow_Changes() {
    if (std::exchange(changed_, false) && form_.follow != nullptr) form_.follow();
    Settle_Sides();
}

void OpenForm::Close() {
    Follow_Changes();
    if (form_.closing != nullptr) form_.closing(item_);
}

namespace {

// Worksheets whose answers shape others come first: S-2 line 26 splits line 5, the codes of S-3 Part III make C Part
// II.
constexpr std::array<std::string_view, 2> kShapingFirst{"S2", "S3p3"};

std::size_t Rank(std::string_view item) {
    return static_cast<std::size_t>(std::ranges::find(kShapingFirst, item) - kShapingFirst.begin());
}

// A line number has four decimals at most: 9.00001 is not line 9.
std::optional<Currency> Line_Of(std::string_view text) {
    text = Trim(text);
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos && text.find_first_not_of('0', point + 5) != std::string_view::npos) {
        return std::nullopt;
    }
    return Currency::From_Text(text);
}

struct ResolvedLine {
    std::size_t rank = 0;
    std::optional<Currency> line;
};

// Enters the cells of one worksheet, `order` their places in the list, lines ascending.
class Batch {
  public:
    Batch(std::span<const CellText> cells, std::vector<CellOutcome>& outcomes) : cells_(cells), outcomes_(outcomes) {}

    void Enter_Worksheet(std::span<const std::size_t> order, std::span<const ResolvedLine> lines);

  private:
    void Refuse_All(std::span<const std::size_t> order, const BoxText& box, std::string_view text) {
        for (const std::size_t at : order) outcomes_[at] = Refused(box, text);
    }
    void Enter_Row(OpenForm& form, Currency line, std::span<const std::size_t> order);

    std::span<const CellText> cells_;
    std::vector<CellOutcome>& outcomes_;
};

void Batch::Enter_Worksheet(std::span<const std::size_t> order, std::span<const ResolvedLine> lines) {
    const Item item(cells_[order.front()].item);
    const WorksheetFamily* family = Find_Family(item);
    if (family == nullptr || !Is_Registered_Table(item.Name()))
        return Refuse_All(order, kUnknownWorksheet, item.Name());
    if (family->edit == nullptr) return Refuse_All(order, kNoEditForm, item.Name());
    OpenForm form(*family->edit, item);
    const bool hasLines = !family->edit->order.empty();
    for (std::size_t from = 0; from < order.size();) {
        const std::optional<Currency> line = hasLines ? lines[order[from]].line : Currency();
        std::size_t to = from + 1;
        while (to < order.size() && (!hasLines || lines[order[to]].line == line)) ++to;
        const std::span<const std::size_t> row = order.subspan(from, to - from);
        if (line) {
            Enter_Row(form, *line, row);
        } else {
            for (const std::size_t at : row) outcomes_[at] = Refused(kInvalidLine, cells_[at].line);
        }
        from = to;
    }
    form.Close();
}

void Batch::Enter_Row(OpenForm& form, Currency line, std::span<const std::size_t> order) {
    const std::string place = Line_Place(form, line);
    if (!form.Go_To(line)) {
        const Row row =
            db.Read_Row(Sql("SELECT * FROM ", form.Worksheet().Name(), Where_Line(form.Description(), line)));
        return Refuse_All(order, row ? kLockedCell : kUnknownLine, place);
    }
    std::vector<std::pair<const GridColumn*, std::size_t>> row;
    for (const std::size_t at : order) {
        if (const GridColumn* column = form.Find_Column(cells_[at].column)) {
            row.emplace_back(column, at);
        } else {
            outcomes_[at] = Refused(kUnknownColumn, Sql(place, ", column '", cells_[at].column, "'"));
        }
    }
    // The columns stand in one vector: their order in it is that of their addresses.
    std::ranges::stable_sort(row, {}, [](const auto& cell) { return cell.first; });
    for (const auto& [column, at] : row) outcomes_[at] = form.Enter(*column, cells_[at].value);
    const CellOutcome left = form.Leave_Row();
    if (left.stored) return;
    form.Cancel_Row();
    for (const auto& [column, at] : row) {
        if (outcomes_[at].stored) outcomes_[at] = left;
    }
}

}  // namespace

std::vector<CellOutcome> Enter_Cells(std::span<const CellText> cells) {
    std::vector<CellOutcome> outcomes(cells.size());
    std::vector<ResolvedLine> lines(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        lines[i] = {Rank(cells[i].item), Line_Of(cells[i].line)};
    }
    std::vector<std::size_t> order(cells.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
        return std::tie(lines[a].rank, cells[a].item, lines[a].line) <
               std::tie(lines[b].rank, cells[b].item, lines[b].line);
    });

    Job job(db);
    Batch batch(cells, outcomes);
    for (std::size_t from = 0; from < order.size();) {
        std::size_t to = from + 1;
        while (to < order.size() && cells[order[to]].item == cells[order[from]].item) ++to;
        batch.Enter_Worksheet(std::span(order).subspan(from, to - from), lines);
        from = to;
    }
    job.Commit();
    return outcomes;
}

CellOutcome Enter_Cell(const CellText& cell) {
    return Enter_Cells({&cell, 1}).front();
}

}  // namespace tallmar
