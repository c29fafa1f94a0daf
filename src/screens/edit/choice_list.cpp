#include "screens/edit/choice_list.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/view/qt_text.h"

namespace tallmar {

ChoiceList::ChoiceList(const PopupList& list, const QString& value, QWidget* window)
    : QFrame(window), entries_(new QListWidget(this)) {
    setObjectName(Qt_Text(list.name));
    setAccessibleName(tr("Choices"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::NoFocus);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(entries_);
    entries_->setFocusPolicy(Qt::NoFocus);
    entries_->setFrameShape(QFrame::NoFrame);
    entries_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    entries_->setAccessibleName(accessibleName());
    for (const PopupEntry& entry : list.entries) {
        auto* action = new QAction(Qt_Text(entry.caption), this);
        action->setObjectName(Qt_Text(entry.control));
        const QString chosen = Qt_Text(entry.value);
        connect(action, &QAction::triggered, this, [this, chosen] { emit Chosen(chosen); });
        addAction(action);
        entries_->addItem(action->text());
        if (chosen.compare(value, Qt::CaseInsensitive) == 0) entries_->setCurrentRow(entries_->count() - 1);
    }
    connect(entries_, &QListWidget::itemClicked, this, [this] { Choose_Current(); });
    // It stands over the whole window, in which forms are moved about and closed.
    qApp->installEventFilter(this);
}

bool ChoiceList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress || !watched->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (widget != this && !isAncestorOf(widget)) emit Left();
    return false;
}

void ChoiceList::Show_At(const QRect& cell) {
    const int frame = 2 * frameWidth();
    const int line = entries_->sizeHintForRow(0);
    int height = line * entries_->count() + frame;
    int width = entries_->sizeHintForColumn(0) + frame + line;
    const QRect room = parentWidget()->rect();
    const int below = room.bottom() - cell.bottom();
    const int above = cell.top() - room.top();
    const bool isBelow = below >= height || below >= above;
    height = std::min(height, std::max(isBelow ? below : above, line + frame));
    width = std::min(std::max(width, cell.width()), room.width());
    const int left = std::max(std::min(cell.left(), room.right() - width), room.left());
    setGeometry(left, isBelow ? cell.bottom() + 1 : cell.top() - height, width, height);
    raise();
    show();
}

bool ChoiceList::Move(int step) {
    const int row = entries_->currentRow() < 0 && step < 0 ? -1 : entries_->currentRow() + step;
    if (row < 0 || row >= entries_->count()) return false;
    entries_->setCurrentRow(row);
    moved_ = true;
    return true;
}

void ChoiceList::Choose_Current() {
    const int row = entries_->currentRow();
    if (row >= 0) actions()[row]->trigger();
}

}  // namespace tallmar
