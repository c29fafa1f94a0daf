// Add, Delete and undo of an open form.
#include <algorithm>
#include <utility>

#include "common/sql_text.h"
#include "report/open_report.h"
#include "screens/cell_place.h"

namespace tallmar {

namespace {

std::string Where(const FormDescription& form, Currency line) {
    return form.order.empty() ? std::string() : Sql("LineNum = ", line);
}

std::string Counted(std::size_t count, std::string_view thing) {
    return Sql(std::to_string(count), " ", thing, count == 1 ? "" : "s");
}

}  // namespace

void OpenForm::Record_Row(const RowUnderEdit& stored) {
    EditPart part{.line = stored.Line(), .cells = {}, .structure = {}, .sidesBefore = {}, .sides = {}};
    if (auto sides = std::exchange(sidesBefore_, std::nullopt)) part.sidesBefore = std::move(*sides);
    const std::string where = Where(form_, stored.Line());
    if (stored.Exists()) {
        const Row now = db.Read_Row(Sql("SELECT * FROM ", table_, where.empty() ? "" : " WHERE ", where, ";"));
        if (!now) return;
        for (const auto& [field, entered] : stored.Entered()) {
            const Value& before = stored.Stored(field);
            if (before != now[field]) part.cells.push_back({field, before, now[field]});
        }
        // What was typed again as it stood is no step.
        if (part.cells.empty() && part.sidesBefore.empty()) return;
    } else {
        const TableState now = Read_State(table_, where);
        part.structure = Difference({now.table, now.fields, {}}, now);
    }
    Record(std::move(part), "");
}

void OpenForm::Record(EditPart part, std::string_view what) {
    if (!grouped_) steps_.push_back({std::string(what), {}});
    steps_.back().parts.push_back(std::move(part));
    undone_.clear();
}

void OpenForm::Settle_Sides() {
    if (form_.sides.empty()) return;
    for (EditStep& step : steps_) {
        for (EditPart& part : step.parts) {
            if (part.sidesBefore.empty()) continue;
            part.sides = Differences(part.sidesBefore, Read_Sides(form_.sides, part.line));
            part.sidesBefore.clear();
        }
    }
}

OpenForm::OneStep::OneStep(OpenForm& form, std::string what) : form_(form) {
    form_.steps_.push_back({std::move(what), {}});
    form_.grouped_ = true;
}

OpenForm::OneStep::~OneStep() {
    form_.grouped_ = false;
    if (form_.steps_.back().parts.empty()) form_.steps_.pop_back();
}

// Of the rows that the form shows; what stands behind them follows from them.
Currency OpenForm::Add_Row(Currency current) {
    Job job(db);
    const TableState before = Read_State(table_, form_.where);
    const Currency line = form_.add(item_, current);
    job.Keep();
    EditPart part{.line = line, .cells = {}, .structure = {}, .sidesBefore = {}, .sides = {}};
    part.structure = Difference(before, Read_State(table_, form_.where));
    Note_Rows(*part.structure);
    Record(std::move(part), Sql("line ", Line_Text(line), " added"));
    return line;
}

bool OpenForm::Remove_Row(Currency line) {
    if (form_.mayRemove != nullptr && !form_.mayRemove(item_, line)) return false;
    Job job(db);
    const TableState before = Read_State(table_, form_.where);
    std::vector<TableState> sides = Read_Sides(form_.sides, line);
    form_.remove(item_, line);
    job.Keep();
    EditPart part{.line = line, .cells = {}, .structure = {}, .sidesBefore = {}, .sides = {}};
    part.structure = Difference(before, Read_State(table_, form_.where));
    // A line of the form's own stays.
    if (part.structure->rows.empty()) return true;
    part.sides = Differences(sides, Read_Sides(form_.sides, line));
    Note_Rows(*part.structure);
    Record(std::move(part), Sql("line ", Line_Text(line), " removed"));
    return true;
}

// Rows that moved can only go back together: none may have been changed since. Computed cells do not count.
bool OpenForm::Still_Stands(const TableChange& change) const {
    for (const RowChange& row : change.rows) {
        const TableState now = Read_State(table_, Where(form_, row.line));
        if (now.fields != change.fields || now.rows.empty() != row.after.empty()) return false;
        for (std::size_t i = 0; i < row.after.size(); ++i) {
            const GridColumn* column = Find_Column(now.fields[i]);
            const bool isEntered = column != nullptr && column->kind != CellKind::Shown;
            if (isEntered && now.rows.front()[i] != row.after[i]) return false;
        }
    }
    return true;
}

std::size_t OpenForm::Undo_Cells(const EditPart& part, UndoOutcome& outcome) {
    const std::string place = Line_Place(*this, part.line);
    if (!Go_To(part.line) || !row_.Exists()) {
        row_ = {};
        outcome.kept.push_back(place + " is no longer there.");
        return 0;
    }
    std::size_t cells = 0;
    for (const CellChange& cell : part.cells) {
        const GridColumn* column = Find_Column(cell.field);
        if (column == nullptr || row_.Stored(column->field) != cell.after) {
            const std::string cellPlace = column == nullptr ? place : Cell_Place(*this, *column, part.line);
            outcome.kept.push_back(cellPlace + ": changed since then and kept.");
            continue;
        }
        row_.Set(column->field, cell.before);
        if (column->kind != CellKind::Shown) ++cells;
    }
    std::string refused;
    if (form_.undoAllowed != nullptr && !form_.undoAllowed(row_)) {
        refused = "nothing was taken back.";
    } else if (form_.leaveRow != nullptr) {
        if (const auto refusal = form_.leaveRow(item_, row_)) refused = refusal->text;
    }
    RowUnderEdit stored;
    if (refused.empty() && Has_Entries()) {
        const CellOutcome outcomeOfRow = Store_Row(stored);
        if (!outcomeOfRow.stored) refused = outcomeOfRow.text;
    }
    row_ = {};
    if (!refused.empty()) {
        outcome.kept.push_back(Sql(place, ": ", refused));
        return 0;
    }
    if (form_.rowStored != nullptr && !stored.Entered().empty()) form_.rowStored(item_, stored, columns_);
    return cells;
}

std::size_t OpenForm::Undo_Part(const EditPart& part, UndoOutcome& outcome) {
    // What the checks wrote goes before the row that they belong to.
    const auto belongsToRow = [&](const TableChange& change) {
        return std::ranges::any_of(form_.sides, [&](const SideTable& side) {
            return !side.rowField.empty() && side.tables.Matches(change.table);
        });
    };
    for (const TableChange& change : part.sides) {
        if (belongsToRow(change)) Put_Back(change);
    }
    if (!part.structure) return Undo_Cells(part, outcome);
    if (!Still_Stands(*part.structure)) {
        outcome.kept.push_back(Line_Place(*this, part.line) + ": changed since then and kept.");
        return 0;
    }
    Put_Back(*part.structure);
    Note_Rows(*part.structure);
    changed_ = true;
    return 1;
}

UndoOutcome OpenForm::Undo() {
    return Take_Step(steps_, undone_, "taken back");
}

UndoOutcome OpenForm::Redo() {
    return Take_Step(undone_, steps_, "done again");
}

UndoOutcome OpenForm::Take_Step(std::vector<EditStep>& from, std::vector<EditStep>& to, std::string_view word) {
    Settle_Sides();
    const EditStep step = std::move(from.back());
    from.pop_back();
    UndoOutcome outcome{.line = step.parts.front().line, .text = {}, .kept = {}};
    std::size_t done = 0;
    Job job(db);
    try {
        std::vector<const EditPart*> undone;
        for (auto part = step.parts.rbegin(); part != step.parts.rend(); ++part) {
            const std::size_t count = Undo_Part(*part, outcome);
            if (count > 0) undone.push_back(&*part);
            done += count;
        }
        Follow_Changes();
        // Tables that follow have followed: what was keyed in them comes back.
        for (const EditPart* part : undone) {
            for (const TableChange& change : part->sides) {
                const bool follows = std::ranges::none_of(form_.sides, [&](const SideTable& side) {
                    return !side.rowField.empty() && side.tables.Matches(change.table);
                });
                if (follows) Put_Back(change);
            }
        }
    } catch (const DbError&) {
        row_ = {};
        from.push_back(step);
        throw;
    }
    job.Keep();
    if (done > 0) to.push_back(Reversed(step));
    if (done == 0) {
        outcome.text = Line_Place(*this, outcome.line) + ": nothing " + std::string(word) + ".";
    } else if (!step.what.empty()) {
        outcome.text = Sql("Worksheet ", item_.Name(), ": ", word, ": ", step.what, ".");
    } else {
        outcome.text = Sql(Line_Place(*this, outcome.line), ": ", Counted(done, "cell"), " ", word, ".");
    }
    return outcome;
}

}  // namespace tallmar
