#include "screens/cell_batch.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "calc/stat_columns.h"
#include "common/sql_text.h"
#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/cell_check.h"
#include "screens/entry_cells.h"
#include "screens/worksheet_forms.h"

namespace tallmar {

namespace {

constexpr BoxText kInvalidLine{"Invalid Line", "'<text>' is no line number."};
constexpr BoxText kUnknownColumn{"Unknown Column", "<text> does not exist."};
constexpr BoxText kUnknownWorksheet{"Unknown Worksheet", "The report has no worksheet '<text>'."};
constexpr BoxText kNoEditForm{"No Edit Form", "Worksheet <text> has no edit form."};

// S-2 comes first: its line 26 moves line 5. Then the codes of S-3 Part III, which make C Part II.
constexpr std::string_view kIdentification = "S2";
constexpr std::string_view kCodes = "S3p3";

int Rank(std::string_view item) {
    return Same_Text(item, kCodes) ? 0 : 1;
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

// The worksheets on which cells name Administrative & General by its number: as their line, in their columns' names
// or as a value of `fields`.
struct NumberedCells {
    std::string_view item;
    bool isLine;
    std::string_view fields;
};
constexpr std::array kNumberedCells{
    NumberedCells{"A", true, ""},
    NumberedCells{"A1", true, ""},
    NumberedCells{"A2", true, ""},
    NumberedCells{"A3", true, ""},
    NumberedCells{"A4", false, "Col_3 Col_6"},
    NumberedCells{"A5", false, "Col_4"},
    NumberedCells{"A6pB", false, "Col_1"},
    NumberedCells{"B1", true, ""},
};
const NumberedCells* Find_Numbered(std::string_view item) {
    const auto found = std::ranges::find_if(kNumberedCells, [&](const auto& n) { return Same_Text(n.item, item); });
    return found == kNumberedCells.end() ? nullptr : &*found;
}

// A list that answers S-2 line 26 may name line 5 by the number that it had before.
struct Renumbering {
    Currency from, to;
    std::set<std::string, LessText> keepTheirs;  // worksheets of which the list names the new line as well

    std::optional<Currency> Line(const CellText& cell, std::optional<Currency> line) const {
        const NumberedCells* numbered = Find_Numbered(cell.item);
        const bool moved = numbered != nullptr && numbered->isLine && line == from && !keepTheirs.contains(cell.item);
        return moved ? to : line;
    }
    std::string Value(std::string_view item, std::string_view field, const std::string& value) const {
        const NumberedCells* numbered = Find_Numbered(item);
        const bool moved = numbered != nullptr && Is_Named(numbered->fields, field) && Line_Of(value) == from;
        return moved ? to.To_Text() : value;
    }
    std::string Column(std::string_view column) const {
        return Same_Text(column, CC_Column(from)) ? CC_Column(to) : std::string(column);
    }
};

// As the chart has it once S-2 is entered; nothing where the list leaves the option, or the chart has both lines.
std::optional<Renumbering> Find_Renumbering(std::span<const CellText> cells) {
    constexpr Currency kOptionLine = 26_cur;
    const bool answersOption = std::ranges::any_of(cells, [&](const CellText& cell) {
        return Same_Text(cell.item, kIdentification) && Line_Of(cell.line) == kOptionLine;
    });
    if (!answersOption) return std::nullopt;
    const auto has = [](Currency line) {
        return static_cast<bool>(db.Read_Row(Sql("SELECT CCNum FROM CostCenters WHERE CCNum = ", line, ";")));
    };
    const bool isWhole = has(5_cur);
    if (isWhole == has(5.01_cur)) return std::nullopt;
    Renumbering moved{isWhole ? 5.01_cur : 5_cur, isWhole ? 5_cur : 5.01_cur, {}};
    for (const CellText& cell : cells) {
        if (Line_Of(cell.line) == moved.to) moved.keepTheirs.insert(cell.item);
    }
    return moved;
}

// Enters cells worksheet by worksheet, row by row.
class Batch {
  public:
    Batch(std::span<const CellText> cells, std::vector<std::optional<Refusal>>& outcomes, const BatchListener& listener)
        : cells_(cells), outcomes_(outcomes), listener_(listener), lines_(cells.size()) {
        std::ranges::transform(cells, lines_.begin(), [](const CellText& cell) { return Line_Of(cell.line); });
    }

    void Enter(std::span<std::size_t> order);
    // What was entered may have moved lines that the rest of the list names.
    void Renumber() {
        renumbering_ = Find_Renumbering(cells_);
        if (!renumbering_) return;
        for (std::size_t i = 0; i < lines_.size(); ++i) lines_[i] = renumbering_->Line(cells_[i], lines_[i]);
    }

  private:
    void Enter_Worksheet(std::span<const std::size_t> order);
    void Refuse_All(std::span<const std::size_t> order, const BoxText& box, std::string_view text) {
        for (const std::size_t at : order) outcomes_[at] = Fill_Box(box, {.text = text});
    }
    void Enter_Row(OpenForm& form, Currency line, std::span<const std::size_t> order);

    std::span<const CellText> cells_;
    std::vector<std::optional<Refusal>>& outcomes_;
    const BatchListener& listener_;
    std::vector<std::optional<Currency>> lines_;  // as many as cells
    std::optional<Renumbering> renumbering_;
};

void Batch::Enter(std::span<std::size_t> order) {
    const auto key = [&](std::size_t at) {
        return std::tuple(Rank(cells_[at].item), std::string_view(cells_[at].item), lines_[at]);
    };
    std::ranges::stable_sort(order, {}, key);
    for (std::size_t from = 0; from < order.size();) {
        std::size_t to = from + 1;
        while (to < order.size() && cells_[order[to]].item == cells_[order[from]].item) ++to;
        Enter_Worksheet(order.subspan(from, to - from));
        from = to;
    }
}

void Batch::Enter_Worksheet(std::span<const std::size_t> order) {
    const Item item(cells_[order.front()].item);
    if (Find_Family(item) == nullptr || !Is_Registered_Table(item.Name()))
        return Refuse_All(order, kUnknownWorksheet, item.Name());
    const FormDescription* edit = Form_Of(FormMode::Edit, item);
    if (edit == nullptr) return Refuse_All(order, kNoEditForm, item.Name());
    OpenForm form(*edit, item);
    const bool hasLines = !edit->order.empty();
    for (std::size_t from = 0; from < order.size();) {
        const std::optional<Currency> line = hasLines ? lines_[order[from]] : Currency();
        std::size_t to = from + 1;
        while (to < order.size() && (!hasLines || lines_[order[to]] == line)) ++to;
        const std::span<const std::size_t> row = order.subspan(from, to - from);
        if (line) {
            Enter_Row(form, *line, row);
        } else {
            for (const std::size_t at : row) outcomes_[at] = Fill_Box(kInvalidLine, {.text = cells_[at].line});
        }
        from = to;
    }
    for (const std::string& text : form.Close()) {
        if (listener_.dropped) listener_.dropped(text);
    }
}

void Batch::Enter_Row(OpenForm& form, Currency line, std::span<const std::size_t> order) {
    if (!form.Place_Cursor(line)) {
        for (const std::size_t at : order) outcomes_[at] = form.Why_No_Row(line);
        return;
    }
    std::vector<std::pair<const GridColumn*, std::size_t>> row;
    for (const std::size_t at : order) {
        const GridColumn* column = form.Find_Column(cells_[at].column);
        if (column == nullptr && renumbering_) column = form.Find_Column(renumbering_->Column(cells_[at].column));
        if (column != nullptr) {
            row.emplace_back(column, at);
        } else {
            const std::string place = Sql(form.Line_Place(line), ", column '", cells_[at].column, "'");
            outcomes_[at] = Fill_Box(kUnknownColumn, {.text = place});
        }
    }
    // The columns are in one vector: their order in it is that of their addresses.
    std::ranges::stable_sort(row, {}, [](const auto& cell) { return cell.first; });
    for (const auto& [column, at] : row) {
        if (listener_.cell) listener_.cell(at);
        const std::string& value = cells_[at].value;
        outcomes_[at] = form.Enter(
            *column, renumbering_ ? renumbering_->Value(form.Worksheet().Name(), column->field, value) : value);
    }
    const std::optional<Refusal> refusal = form.Store_Row();
    if (!refusal) return;
    form.Discard_Row();
    for (const auto& [column, at] : row) {
        if (!outcomes_[at]) outcomes_[at] = refusal;
    }
}

}  // namespace

std::vector<std::optional<Refusal>> Enter_Cells(std::span<const CellText> cells, const BatchListener& listener) {
    std::vector<std::optional<Refusal>> outcomes(cells.size());
    std::vector<std::size_t> order(cells.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto rest = std::ranges::stable_partition(
        order, [&](std::size_t at) { return Same_Text(cells[at].item, kIdentification); });
    const auto first = static_cast<std::size_t>(rest.begin() - order.begin());

    Job job(db);
    Batch batch(cells, outcomes, listener);
    batch.Enter(std::span(order).first(first));
    batch.Renumber();
    batch.Enter(std::span(order).subspan(first));
    job.Keep();  // refused cells and all: the others are stored
    return outcomes;
}

std::optional<Refusal> Enter_Cell(const CellText& cell) {
    return Enter_Cells({&cell, 1}).front();
}

}  // namespace tallmar
