// The cursor of an edit grid. It leaves a cell only when the grid lets it: the entry under the editor is taken first,
// and the row is stored where the cursor goes to another.
#pragma once

#include <QItemSelectionModel>
#include <functional>
#include <utility>

namespace tallmar {

class EntryGuard : public QItemSelectionModel {
    Q_OBJECT

  public:
    // `mayLeave` is asked before the cursor moves to a cell, by whatever way; it says why not.
    EntryGuard(QAbstractItemModel* model, std::function<bool(const QModelIndex& to)> mayLeave, QObject* parent)
        : QItemSelectionModel(model, parent), mayLeave_(std::move(mayLeave)) {}

    using QItemSelectionModel::select;
    void setCurrentIndex(const QModelIndex& index, QItemSelectionModel::SelectionFlags command) override;
    void select(const QItemSelection& selection, QItemSelectionModel::SelectionFlags command) override;

    // One key or mouse event: a selection that comes behind a refused move in it is refused as well.
    class Event {
      public:
        explicit Event(EntryGuard& guard) : guard_(guard) {
            guard_.inEvent_ = true;
            guard_.vetoed_ = false;
        }
        ~Event() { guard_.inEvent_ = guard_.vetoed_ = false; }
        Event(const Event&) = delete;
        Event& operator=(const Event&) = delete;

      private:
        EntryGuard& guard_;
    };

  private:
    std::function<bool(const QModelIndex& to)> mayLeave_;
    bool inEvent_ = false;
    bool vetoed_ = false;
};

}  // namespace tallmar
