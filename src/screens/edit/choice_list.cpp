#include "screens/edit/choice_list.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/view/qt_text.h"

namespace tallmar {

ChoiceList::ChoiceList(QWidget* window) : QFrame(window), entries_(new QListWidget(this)) {
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
    connect(entries_, &QListWidget::itemClicked, this, [this] { Choose_Current(); });
    // It is over the whole window, in which forms are moved about and closed.
    qApp->installEventFilter(this);
}

ChoiceList::ChoiceList(const PopupList& list, const QString& value, QWidget* window) : ChoiceList(window) {
    setObjectName(Qt_Text(list.name));
    for (const PopupEntry& entry : list.entries) {
        Add_Entry(Qt_Text(entry.caption), Qt_Text(entry.value), value).setObjectName(Qt_Text(entry.control));
        // A report just made holds some answers as whole words.
        if (Qt_Text(entry.shown).compare(value, Qt::CaseInsensitive) == 0) {
            entries_->setCurrentRow(entries_->count() - 1);
        }
    }
}

ChoiceList::ChoiceList(const std::vector<CellChoice>& choices, const QString& value, QWidget* window)
    : ChoiceList(window) {
    setObjectName("lstChoices");
    for (const CellChoice& choice : choices) Add_Entry(Qt_Text(choice.caption), Qt_Text(choice.value), value);
}

QAction& ChoiceList::Add_Entry(const QString& caption, const QString& chosen, const QString& value) {
    auto* action = new QAction(caption, this);
    action->setData(chosen);
    connect(action, &QAction::triggered, this, [this, chosen] { emit Chosen(chosen); });
    addAction(action);
    entries_->addItem(action->text());
    if (chosen.compare(value, Qt::CaseInsensitive) == 0) entries_->setCurrentRow(entries_->count() - 1);
    return *action;
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
    int row = entries_->currentRow();
    if (row < 0 && step < 0) return false;
    do {
        row += step;
        if (row < 0 || row >= entries_->count()) return false;
    } while (entries_->isRowHidden(row));
    entries_->setCurrentRow(row);
    moved_ = true;
    return true;
}

void ChoiceList::Narrow(const QString& text) {
    const QString sought = text.trimmed();
    int found = -1;
    for (int row = 0; row < entries_->count(); ++row) {
        const QString value = actions()[row]->data().toString();
        const bool fits = value.startsWith(sought, Qt::CaseInsensitive) ||
                          entries_->item(row)->text().mid(value.size()).contains(sought, Qt::CaseInsensitive);
        entries_->setRowHidden(row, !fits);
        const bool isIt = value.compare(sought, Qt::CaseInsensitive) == 0;
        if (isIt || (fits && found < 0)) found = row;
    }
    moved_ = !sought.isEmpty() && found >= 0;
    entries_->setCurrentRow(moved_ ? found : -1);
}

QString ChoiceList::Current_Value() const {
    const int row = entries_->currentRow();
    return row < 0 ? QString() : actions()[row]->data().toString();
}

void ChoiceList::Choose_Current() {
    const int row = entries_->currentRow();
    if (row >= 0) actions()[row]->trigger();
}

}  // namespace tallmar
