#include "screens/edit_history.h"

#include <algorithm>
#include <utility>

#include "common/sql_text.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

std::string Counted(std::size_t count, std::string_view thing) {
    return Sql(std::to_string(count), " ", thing, count == 1 ? "" : "s");
}

// What the checks wrote for a row, as B1X: it goes before the row. What follows from a row goes back after it.
bool Belongs_To_Row(const OpenForm& form, const TableChange& change) {
    return std::ranges::any_of(form.Description().rows.sides, [&](const SideTable& side) {
        return !side.rowField.empty() && side.tables.Matches(change.table);
    });
}

StoredChange Reversed_Change(StoredChange change) {
    for (CellChange& cell : change.cells) std::swap(cell.before, cell.after);
    if (change.rows) change.rows = Reversed(std::move(*change.rows));
    for (TableChange& side : change.sides) side = Reversed(std::move(side));
    return change;
}

}  // namespace

EditHistory::EditHistory(OpenForm& form) : form_(form) {
    form_.Set_Listener(
        {.stored = [this](StoredChange change) { Record(std::move(change)); }, .followed = [this] { Settle_Sides(); }});
}

EditHistory::~EditHistory() {
    form_.Set_Listener({});
}

void EditHistory::Record(StoredChange change) {
    if (!grouped_) steps_.push_back({change.what, {}});
    steps_.back().changes.push_back(std::move(change));
    undone_.clear();
}

void EditHistory::Settle_Sides() {
    const std::span<const SideTable> sides = form_.Description().rows.sides;
    if (sides.empty()) return;
    for (Step& step : steps_) {
        for (StoredChange& change : step.changes) {
            if (change.sidesBefore.empty()) continue;
            change.sides = Differences(change.sidesBefore, Read_Sides(sides, change.line));
            change.sidesBefore.clear();
        }
    }
}

EditHistory::OneStep::OneStep(EditHistory& history, std::string what) : history_(history) {
    history_.steps_.push_back({std::move(what), {}});
    history_.grouped_ = true;
}

EditHistory::OneStep::~OneStep() {
    history_.grouped_ = false;
    if (history_.steps_.back().changes.empty()) history_.steps_.pop_back();
}

// Rows that moved can only go back together: none may have been changed since. Computed cells do not count.
bool EditHistory::Is_As_Stored(const TableChange& change) const {
    const bool hasLines = !form_.Description().order.empty();
    for (const RowChange& row : change.rows) {
        const TableState now = Read_State(change.table, hasLines ? Sql("LineNum = ", row.line) : std::string());
        if (now.fields != change.fields || now.rows.empty() != row.after.empty()) return false;
        for (std::size_t i = 0; i < row.after.size(); ++i) {
            const GridColumn* column = form_.Find_Column(now.fields[i]);
            const bool isEntered = column != nullptr && column->kind != CellKind::Shown;
            if (isEntered && now.rows.front()[i] != row.after[i]) return false;
        }
    }
    return true;
}

std::size_t EditHistory::Take_Back_Cells(const StoredChange& change, UndoOutcome& outcome) {
    const std::string place = form_.Line_Place(change.line);
    if (!form_.Place_Cursor(change.line) || !form_.Under_Edit().Exists()) {
        form_.Discard_Row();
        outcome.kept.push_back(place + " is no longer there.");
        return 0;
    }
    std::size_t cells = 0;
    OpenForm::FormerValues values;
    for (const CellChange& cell : change.cells) {
        const GridColumn* column = form_.Find_Column(cell.field);
        if (column == nullptr || form_.Under_Edit().Stored(column->field) != cell.after) {
            const std::string cellPlace = column == nullptr ? place : form_.Cell_Place(*column, change.line);
            outcome.kept.push_back(cellPlace + ": changed since then and kept.");
            continue;
        }
        values.emplace_back(column, cell.before);
        if (column->kind != CellKind::Shown) ++cells;
    }
    const std::optional<Refusal> refusal = form_.Put_Back_Cells(values);
    form_.Discard_Row();
    if (!refusal) return cells;
    outcome.kept.push_back(Sql(place, ": ", refusal->text));
    return 0;
}

std::size_t EditHistory::Take_Back(const StoredChange& change, UndoOutcome& outcome) {
    for (const TableChange& side : change.sides) {
        if (Belongs_To_Row(form_, side)) Put_Back(side);
    }
    if (!change.rows) return Take_Back_Cells(change, outcome);
    if (!Is_As_Stored(*change.rows)) {
        outcome.kept.push_back(form_.Line_Place(change.line) + ": changed since then and kept.");
        return 0;
    }
    form_.Put_Back_Rows(*change.rows);
    return 1;
}

std::size_t EditHistory::Take_Back(const Step& step, UndoOutcome& outcome) {
    std::size_t done = 0;
    std::vector<const StoredChange*> undone;
    for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
        const std::size_t count = Take_Back(*change, outcome);
        if (count > 0) undone.push_back(&*change);
        done += count;
    }
    form_.Follow_Changes();
    // The tables that follow are up to date: what was keyed in them comes back.
    for (const StoredChange* change : undone) {
        for (const TableChange& side : change->sides) {
            if (!Belongs_To_Row(form_, side)) Put_Back(side);
        }
    }
    return done;
}

UndoOutcome EditHistory::Undo() {
    return Take_Step(steps_, undone_, "taken back");
}

UndoOutcome EditHistory::Redo() {
    return Take_Step(undone_, steps_, "done again");
}

EditHistory::Step EditHistory::Reversed(const Step& step) {
    Step reversed{step.what, {}};
    for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
        reversed.changes.push_back(Reversed_Change(*change));
    }
    return reversed;
}

std::string EditHistory::Step_Text(const Step& step, std::size_t done, std::string_view word) const {
    const std::string place = form_.Line_Place(step.changes.front().line);
    if (done == 0) return Sql(place, ": nothing ", word, ".");
    if (step.what.empty()) return Sql(place, ": ", Counted(done, "cell"), " ", word, ".");
    return Sql("Worksheet ", form_.Worksheet().Name(), ": ", word, ": ", step.what, ".");
}

UndoOutcome EditHistory::Take_Step(std::vector<Step>& from, std::vector<Step>& to, std::string_view word) {
    Settle_Sides();
    const Step step = std::move(from.back());
    from.pop_back();
    UndoOutcome outcome{.line = step.changes.front().line, .text = {}, .kept = {}};
    std::size_t done = 0;
    Job job(db);
    try {
        done = Take_Back(step, outcome);
    } catch (const DbError&) {
        form_.Discard_Row();
        from.push_back(step);
        throw;
    }
    job.Keep();
    if (done > 0) to.push_back(Reversed(step));
    outcome.text = Step_Text(step, done, word);
    return outcome;
}

}  // namespace tallmar
