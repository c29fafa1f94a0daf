#include "screens/edit/cell_editor.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

#include "screens/view/grid_model.h"

namespace tallmar {

namespace {

// Of the height of a line.
constexpr qreal kPencilShare = 0.8;
constexpr qreal kPencilLean = 35;

// With the editor replacing the cell's text every arrow leaves, else only what a line of text has no use for.
bool Leaves(int key, bool replacing) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return true;
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            return replacing;
        default:
            return false;
    }
}

}  // namespace

void CellEditor::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    GridDelegate::paint(painter, option, index);
    if (!index.data(kPendingRole).toBool()) return;
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const qreal size =
        std::min({option.fontMetrics.height(), option.rect.width(), option.rect.height()}) * kPencilShare;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
    // It stands on its tip, leaning to the right.
    painter->translate(option.rect.right() - size, option.rect.center().y() + size / 2);
    painter->rotate(kPencilLean);
    const qreal half = size / 6;
    painter->drawPolygon(QPolygonF({{0, 0}, {half, -2 * half}, {-half, -2 * half}}));
    painter->drawRect(QRectF(-half, -size, 2 * half, size - 3 * half));
    painter->restore();
}

QWidget* CellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    auto* editor = new QLineEdit(parent);
    editor->setObjectName("cellEditor");
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    const QString head = index.model()->headerData(index.column(), Qt::Horizontal, Qt::AccessibleTextRole).toString();
    const QString line = index.model()->headerData(index.row(), Qt::Vertical).toString();
    editor->setAccessibleName(tr("Line %1, %2").arg(line, head));
    editor_ = editor;
    return editor;
}

void CellEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* line = static_cast<QLineEdit*>(editor);
    // The rows may be read again under an open editor: what is being typed stays.
    if (!line->isModified()) line->setText(index.data(Qt::EditRole).toString());
}

void CellEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const {
    // The grid draws a frame around it.
    editor->setGeometry(option.rect.adjusted(1, 1, -1, -1));
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor_) return false;
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // Keys that are somebody's shortcut, and the editor's while it is open.
        if (key->key() == Qt::Key_Escape || Leaves(key->key(), replacing_)) {
            event->accept();
            return true;
        }
        return false;
    }
    // A box, a menu or another window takes the focus: the entry stays under the editor.
    if (event->type() != QEvent::KeyPress) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (keys_ != nullptr && keys_(*key)) return true;
    if (key->key() == Qt::Key_Escape) {
        emit Discarded();
        return true;
    }
    if (key->key() == Qt::Key_F2) {
        replacing_ = false;
        return true;
    }
    if (Leaves(key->key(), replacing_)) {
        emit Left_By(key->key(), key->modifiers());
        return true;
    }
    // The grid would scroll.
    return key->key() == Qt::Key_Up || key->key() == Qt::Key_Down;
}

}  // namespace tallmar
