#include "screens/edit/entry_guard.h"

namespace tallmar {

void EntryGuard::setCurrentIndex(const QModelIndex& index, QItemSelectionModel::SelectionFlags command) {
    // The cursor of an edit form is always in a cell.
    if (!index.isValid()) return;
    if (index != currentIndex() && !mayLeave_(index)) {
        vetoed_ = inEvent_;
        return;
    }
    QItemSelectionModel::setCurrentIndex(index, command);
}

void EntryGuard::select(const QItemSelection& selection, QItemSelectionModel::SelectionFlags command) {
    if (!vetoed_) QItemSelectionModel::select(selection, command);
}

}  // namespace tallmar
