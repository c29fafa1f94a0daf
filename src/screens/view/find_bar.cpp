#include "screens/view/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "common/platform.h"
#include "screens/view/grid_view.h"

namespace tallmar {

FindBar::FindBar(GridView& grd, QWidget* parent)
    : QWidget(parent), grd_(grd), txtFind_(new QLineEdit(this)), lblFound_(new QLabel(this)) {
    setObjectName("picFind");
    txtFind_->setObjectName("txtFind");
    txtFind_->setAccessibleName(tr("Find"));
    txtFind_->setClearButtonEnabled(true);
    lblFound_->setObjectName("lblFound");
    auto* label = new QLabel(tr("F&ind:"), this);
    label->setBuddy(txtFind_);
    auto* line = new QHBoxLayout(this);
    line->addWidget(label);
    line->addWidget(txtFind_, 1);
    const auto button = [&](const char* name, const QString& caption, const QString& tip, auto does) {
        auto* made = new QPushButton(caption, this);
        made->setObjectName(name);
        made->setAccessibleName(tip);
        made->setToolTip(tip);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, does);
        line->addWidget(made);
    };
    button("cmdFindNext", tr("Next"), tr("Find next (F3)"), [this] { Next(); });
    button("cmdFindPrevious", tr("Previous"), tr("Find previous (Shift+F3)"), [this] { Next(true); });
    line->addWidget(lblFound_, 1);
    button("cmdFindClose", tr("Done"), tr("Close the search (Esc)"), [this] { Close(); });
    connect(txtFind_, &QLineEdit::textEdited, lblFound_, &QLabel::clear);
    hide();
}

void FindBar::Open() {
    show();
    txtFind_->setFocus(Qt::ShortcutFocusReason);
    txtFind_->selectAll();
}

void FindBar::Close() {
    hide();
    lblFound_->clear();
    grd_.setFocus(Qt::OtherFocusReason);
}

void FindBar::Next(bool backwards) {
    if (txtFind_->text().isEmpty()) return Open();
    if (grd_.Find(txtFind_->text(), backwards)) {
        lblFound_->clear();
        return;
    }
    The_Platform().Beep();
    lblFound_->setText(tr("\"%1\" was not found.").arg(txtFind_->text()));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    const bool back = (event->modifiers() & Qt::ShiftModifier) != 0;
    switch (event->key()) {
        case Qt::Key_Escape:
            return Close();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Next(back);
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace tallmar
