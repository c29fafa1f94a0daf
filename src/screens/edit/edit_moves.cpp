// How the cursor goes from entry to entry, as people key rows into a spreadsheet: Tab along the row, Enter to the next
// row, back to the column where the run of Tabs began. Names and cells that take nothing are passed by.
#include <algorithm>
#include <cstdlib>

#include "screens/edit/edit_grid.h"

namespace tallmar {

// From a row on, `step` rows at a time: in the column or, where that takes no entry any more, the nearest entry of the
// first row that has one.
QModelIndex EditGrid::Next_Entry(int row, int column, int step) const {
    const GridModel& cells = Model();
    for (int next = row + step; next >= 0 && next < cells.rowCount(); next += step) {
        if (Is_Stop(cells.index(next, column))) return cells.index(next, column);
    }
    for (int next = row + step; next >= 0 && next < cells.rowCount(); next += step) {
        QModelIndex nearest;
        for (int i = 0; i < cells.columnCount(); ++i) {
            const QModelIndex index = cells.index(next, i);
            const bool isNearer = !nearest.isValid() || std::abs(i - column) < std::abs(nearest.column() - column);
            if (isNearer && Is_Stop(index)) nearest = index;
        }
        if (nearest.isValid()) return nearest;
    }
    return {};
}

void EditGrid::Enter(bool up) {
    const QModelIndex at = currentIndex();
    const QModelIndex next = Next_Entry(at.row(), run_.value_or(at.column()), up ? -1 : 1);
    if (next.isValid()) return setCurrentIndex(next);
    const OpenForm& form = Entries().Form();
    const bool adds = !up && form.Description().add != nullptr && at.row() + 1 == Model().rowCount();
    if (adds && addOffered_ && !form.Has_Entries()) return Add_Row();
    const QString stored = Pending_Text();
    if (!Commit() || !adds) return;
    addOffered_ = true;
    emit Told((stored + ' ' + tr("Press Enter again to add a line.")).trimmed());
}

void EditGrid::Tab(bool back) {
    const int columns = Model().columnCount();
    const int cells = Model().rowCount() * columns;
    const int step = back ? -1 : 1;
    const QModelIndex at = currentIndex();
    const int began = run_.value_or(at.column());
    for (int cell = at.row() * columns + at.column() + step; cell >= 0 && cell < cells; cell += step) {
        const QModelIndex next = Model().index(cell / columns, cell % columns);
        if (!Is_Stop(next)) continue;
        setCurrentIndex(next);
        // A run that goes over the end of a row begins anew there.
        if (currentIndex() == next) run_ = next.row() == at.row() ? began : next.column();
        return;
    }
    // On to the buttons, with the row stored.
    if (Commit()) QAbstractScrollArea::focusNextPrevChild(!back);
}

}  // namespace tallmar
