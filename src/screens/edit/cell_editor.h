// The editor of a cell: a line of text that leaves by the keys of a spreadsheet. It takes nothing into the table by
// itself: the grid asks for its text.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <functional>

#include "screens/view/grid_delegate.h"

class QKeyEvent;

namespace tallmar {

class CellEditor : public GridDelegate {
    Q_OBJECT

  public:
    using GridDelegate::GridDelegate;

    // Null while none is open.
    QLineEdit* Open() const { return static_cast<QLineEdit*>(editor_.data()); }
    // It is being closed.
    void Forget() { editor_ = nullptr; }
    // Typing replaces the cell: arrows then leave it. Otherwise they move in the text.
    void Set_Replacing(bool on) { replacing_ = on; }

    // Asked first for each key that the editor gets: true where it is done with.
    void Ask_First(std::function<bool(QKeyEvent&)> keys) { keys_ = std::move(keys); }

    // A row that is not stored yet has a pencil.
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

  signals:
    // A key that leaves the cell: the entry is to be taken, and the cursor to be moved as the key says.
    void Left_By(int key, Qt::KeyboardModifiers modifiers);
    // Esc: the entry is to be discarded.
    void Discarded();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<bool(QKeyEvent&)> keys_;
    mutable QPointer<QObject> editor_;  // a QLineEdit, until it begins to be destroyed
    bool replacing_ = false;
};

}  // namespace tallmar
