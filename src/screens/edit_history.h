// What an open form stored, kept so that it can be taken back and done again: the cells of a row before and after, rows
// that came, went or moved, and what changed with them in other tables.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "screens/open_form.h"

namespace tallmar {

// What an undo or a redo did.
struct UndoOutcome {
    Currency line;                  // that the cursor goes to
    std::string text;               // "Worksheet A, line 5: 2 cells taken back."
    std::vector<std::string> kept;  // what had changed since and stays, a sentence each
};

class EditHistory {
  public:
    // Listens to the form, which outlives it.
    explicit EditHistory(OpenForm& form);
    ~EditHistory();
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;

    // Takes the last step back: a row as it was stored, a row that came or went, or a whole OneStep. Former values go
    // in by the way of every entry but its check. Cells that no longer hold what the step stored stay. Requires that
    // nothing is entered in the row; the cursor is in none then. Throws DbError; the step is still there then.
    bool Can_Undo() const { return !steps_.empty(); }
    UndoOutcome Undo();
    // The step that was taken back last, again and by the same way. A step that is stored after it ends it.
    bool Can_Redo() const { return !undone_.empty(); }
    UndoOutcome Redo();

    // Rows that are stored, added and removed during its life are one step; `what` names it: "paste".
    class OneStep {
      public:
        OneStep(EditHistory& history, std::string what);
        ~OneStep();
        OneStep(const OneStep&) = delete;
        OneStep& operator=(const OneStep&) = delete;

      private:
        EditHistory& history_;
    };

  private:
    struct Step {
        std::string what;  // "line 15.01 added"; empty: cells of a row
        std::vector<StoredChange> changes;
    };
    static Step Reversed(const Step& step);
    void Record(StoredChange change);
    void Settle_Sides();
    UndoOutcome Take_Step(std::vector<Step>& from, std::vector<Step>& to, std::string_view word);
    // How much of a change went back: cells, or 1 for rows.
    std::size_t Take_Back(const Step& step, UndoOutcome& outcome);
    std::size_t Take_Back(const StoredChange& change, UndoOutcome& outcome);
    std::size_t Take_Back_Cells(const StoredChange& change, UndoOutcome& outcome);
    bool Is_As_Stored(const TableChange& change) const;
    std::string Step_Text(const Step& step, std::size_t done, std::string_view word) const;

    OpenForm& form_;
    std::vector<Step> steps_;
    std::vector<Step> undone_;  // the other way round
    bool grouped_ = false;      // the last step still grows
};

}  // namespace tallmar
