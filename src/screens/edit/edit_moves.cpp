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

// The row is stored before the next entry is looked for: its answers open and close cells of other rows.
void EditGrid::Enter(bool up) {
    const int column = run_.value_or(currentIndex().column());
    const bool offered = addOffered_;
    const QString stored = Pending_Text();
    if (!Commit()) return;
    const QModelIndex at = currentIndex();
    const QModelIndex next = Next_Entry(at.row(), column, up ? -1 : 1);
    if (next.isValid()) return setCurrentIndex(next);
    const bool adds = !up && Entries().Form().Description().lines.add != nullptr && at.row() + 1 == Model().rowCount();
    if (!adds) return;
    if (offered && stored.isEmpty()) return Add_Row();
    addOffered_ = true;
    emit Told((stored + ' ' + tr("Press Enter again to add a line.")).trimmed());
}

QModelIndex EditGrid::Next_In_Row(const QModelIndex& at, int step) const {
    for (int column = at.column() + step; column >= 0 && column < Model().columnCount(); column += step) {
        const QModelIndex next = Model().index(at.row(), column);
        if (Is_Stop(next)) return next;
    }
    return {};
}

QModelIndex EditGrid::Next_Beyond_Row(const QModelIndex& at, int step) const {
    const int first = step < 0 ? Model().columnCount() - 1 : 0;
    for (int row = at.row() + step; row >= 0 && row < Model().rowCount(); row += step) {
        const QModelIndex end = Model().index(row, first);
        const QModelIndex next = Is_Stop(end) ? end : Next_In_Row(end, step);
        if (next.isValid()) return next;
    }
    return {};
}

void EditGrid::Tab(bool back) {
    const int step = back ? -1 : 1;
    const int began = run_.value_or(currentIndex().column());
    QModelIndex next = Next_In_Row(currentIndex(), step);
    const bool isInRow = next.isValid();
    if (!isInRow) {
        if (!Commit()) return;
        next = Next_Beyond_Row(currentIndex(), step);
        // On to the buttons.
        if (!next.isValid()) {
            QAbstractScrollArea::focusNextPrevChild(!back);
            return;
        }
    }
    setCurrentIndex(next);
    // A run that goes over the end of a row starts over there.
    if (currentIndex() == next) run_ = isInRow ? began : next.column();
}

}  // namespace tallmar
