#include "screens/cell_block.h"

#include <algorithm>
#include <utility>

#include "common/dates.h"
#include "common/format.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "screens/cell_text.h"

namespace tallmar {

namespace {

constexpr std::string_view kNoColumn = "There is no column here.";
constexpr std::string_view kNoRow = "There is no row here, and the worksheet takes no more.";
constexpr std::string_view kNumberForName = "A number is no name.";
constexpr std::string_view kGone = "The line is no longer there.";

// Of a text in the list of messages.
constexpr int kMostCharacters = 40;
constexpr std::string_view kSum = "#,##0.00;(#,##0.00)";

// The text says what the cell holds already. A blank says so of a cell without an amount.
bool Holds(const Value& value, std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const bool isZero = !value.Is<std::string>() && value.Is_Numeric() && value.To_Double() == 0;
    if (Is_Blank_Text(trimmed)) return Is_Blank(value) || isZero;
    if (value.Is_Null()) return false;
    if (value.Is<Date>()) return Parse_Date(trimmed) == std::optional(value.To_Date());
    // A label may end with a blank, which no entry keeps.
    if (value.Is<std::string>()) return Trim(value.To_Text()) == trimmed;
    const std::optional<double> amount = Parse_Amount(trimmed);
    return amount && value.Is_Numeric() && *amount == value.To_Double();
}

const std::string& Reason(const Refusal& refusal) {
    return refusal.brief.empty() ? refusal.text : refusal.brief;
}

void Add(RoundedAmounts& all, const RoundedAmounts& more) {
    all.count += more.count;
    all.before += more.before;
    all.after += more.after;
}

// Enters the rows of one block, and lists what the person must know of it.
class BlockEntry {
  public:
    BlockEntry(OpenForm& form, BlockOutcome& outcome) : form_(form), outcome_(outcome) {}

    void Enter_Row(const BlockRow& row);

  private:
    void Note(const BlockCell& cell, std::string_view reason, bool refused = true) {
        outcome_.notes.push_back(
            {line_, cell.column == nullptr ? "" : cell.column->field, cell.text, std::string(reason), refused});
    }
    void Refuse_All(const BlockRow& row, std::string_view reason) {
        for (const BlockCell& cell : row.cells) {
            if (!Is_Blank_Text(cell.text)) Note(cell, reason);
        }
    }
    bool Find_Line(const BlockRow& row);
    // True where the cell took an entry.
    bool Enter_Cell(const BlockCell& cell, RoundedAmounts& rounded);
    // What was warned of as the cell was entered: amounts that were rounded are only counted.
    void Note_Warnings(const BlockCell& cell, RoundedAmounts& rounded);

    OpenForm& form_;
    BlockOutcome& outcome_;
    std::vector<Refusal> warnings_;
    EntryTalk talk_{warnings_};
    std::optional<Currency> line_;
    Currency last_;
    bool isFull_ = form_.Description().lines.add == nullptr;  // takes no more rows
};

bool BlockEntry::Find_Line(const BlockRow& row) {
    line_ = row.line;
    if (line_) return true;
    const bool isBlank = std::ranges::all_of(row.cells, [](const auto& cell) { return Is_Blank_Text(cell.text); });
    if (isBlank) return false;
    if (!isFull_) {
        try {
            line_ = form_.Add_Row(last_);
        } catch (const DbError&) {
            isFull_ = true;  // trying it for each of thousands of rows takes long
        }
    }
    if (!line_) Refuse_All(row, kNoRow);
    return line_.has_value();
}

void BlockEntry::Note_Warnings(const BlockCell& cell, RoundedAmounts& rounded) {
    const std::optional<double> typed = Parse_Amount(cell.text);
    const Value& taken = form_.Under_Edit()[cell.column->field];
    for (const Refusal& warning : std::exchange(warnings_, {})) {
        if (typed && taken.Is_Numeric() && taken.To_Double() != *typed) {
            Add(rounded, {1, *typed, taken.To_Double()});
        } else {
            Note(cell, Reason(warning), false);
        }
    }
}

bool BlockEntry::Enter_Cell(const BlockCell& cell, RoundedAmounts& rounded) {
    const bool isBlank = Is_Blank_Text(cell.text);
    if (cell.column == nullptr) {
        if (!isBlank) Note(cell, kNoColumn);
        return false;
    }
    if (Holds(form_.Under_Edit()[cell.column->field], cell.text)) return false;
    // Amounts pass names by.
    if (Is_Number_For_Name(*cell.column, cell.text)) {
        Note(cell, kNumberForName);
        return false;
    }
    if (cell.column->kind == CellKind::Name && isBlank) return false;
    if (const std::optional<Refusal> refusal = form_.Enter(*cell.column, cell.text, talk_)) {
        if (!isBlank || !form_.Is_Locked(*cell.column)) Note(cell, Reason(*refusal));
        return false;
    }
    Note_Warnings(cell, rounded);
    return true;
}

void BlockEntry::Enter_Row(const BlockRow& row) {
    if (!Find_Line(row)) return;
    last_ = *line_;
    if (!form_.Place_Cursor(*line_)) return Refuse_All(row, kGone);
    std::vector<const BlockCell*> entered;
    RoundedAmounts rounded;
    for (const BlockCell& cell : row.cells) {
        if (Enter_Cell(cell, rounded)) entered.push_back(&cell);
    }
    if (entered.empty()) {
        form_.Discard_Row();
        return;
    }
    if (const std::optional<Refusal> refusal = form_.Store_Row(talk_)) {
        form_.Discard_Row();
        for (const BlockCell* cell : entered) Note(*cell, Reason(*refusal));
        return;
    }
    ++outcome_.rows;
    outcome_.cells += entered.size();
    Add(outcome_.rounded, rounded);
}

// What was to go into a cell, short enough for a line of the list.
std::string Quoted_Text(std::string_view text) {
    std::string line;
    for (const char c : text) line += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
    if (Length(line) > kMostCharacters) line = Left(line, kMostCharacters) + "...";
    return "'" + line + "'";
}

// "Line 6, column 1 Salaries, '12a': not a number."
std::string Note_Text(const OpenForm& form, const BlockNote& note) {
    std::string place;
    if (note.line && !form.Description().order.empty()) place = Sql("Line ", Line_Text(*note.line), ", ");
    const GridColumn* column = note.column.empty() ? nullptr : form.Find_Column(note.column);
    if (column != nullptr) {
        place +=
            Sql(place.empty() ? "Column " : "column ", form.Head_Text(*column, note.line.value_or(Currency())), ", ");
    }
    place += Sql(Quoted_Text(note.text), ": ", note.reason);
    if (!place.ends_with('.')) place += '.';
    return place;
}

}  // namespace

std::vector<BlockRow> Block_At(const ClipboardRows& rows, std::span<const Currency> lines,
                               std::span<const GridColumn* const> columns) {
    std::vector<BlockRow> block;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        BlockRow& row = block.emplace_back();
        if (i < lines.size()) row.line = lines[i];
        for (std::size_t k = 0; k < rows[i].size(); ++k) {
            row.cells.push_back({k < columns.size() ? columns[k] : nullptr, rows[i][k]});
        }
    }
    return block;
}

BlockOutcome Enter_Block(OpenForm& form, std::span<const BlockRow> rows) {
    BlockOutcome outcome;
    Job job(db);
    try {
        BlockEntry entry(form, outcome);
        for (const BlockRow& row : rows) entry.Enter_Row(row);
        form.Follow_Changes();
    } catch (const DbError&) {
        job.Keep();  // rows that were stored stay, and can be taken back
        throw;
    }
    job.Keep();
    return outcome;
}

std::vector<Platform::BatchMessage> Block_Messages(const OpenForm& form, const BlockOutcome& outcome) {
    const std::string worksheet = form.Worksheet().Name();
    std::vector<Platform::BatchMessage> messages;
    for (const bool refused : {true, false}) {
        for (const BlockNote& note : outcome.notes) {
            if (note.refused == refused) messages.push_back({refused ? "E" : "W", worksheet, Note_Text(form, note)});
        }
    }
    const RoundedAmounts& rounded = outcome.rounded;
    if (rounded.count == 0) return messages;
    const std::string_view amounts = rounded.count == 1 ? " amount was rounded: " : " amounts were rounded: ";
    messages.push_back({"W", worksheet,
                        Sql(std::to_string(rounded.count), amounts, Format(rounded.before, kSum), " before, ",
                            Format(rounded.after, kSum), " after.")});
    return messages;
}

}  // namespace tallmar
