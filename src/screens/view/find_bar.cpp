#include "screens/view/find_bar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "common/platform.h"
#include "screens/view/grid_model.h"
#include "screens/view/grid_view.h"
#include "screens/view/qt_text.h"

namespace tallmar {

FindBar::FindBar(GridView& grd, QWidget* parent)
    : QWidget(parent),
      grd_(grd),
      mode_(grd.Model().Form().Description().readOnly ? FormMode::View : FormMode::Edit),
      txtFind_(new QLineEdit(this)),
      chkEverywhere_(new QCheckBox(tr("All &worksheets"), this)),
      lblFound_(new QLabel(this)) {
    setObjectName("picFind");
    txtFind_->setObjectName("txtFind");
    txtFind_->setAccessibleName(tr("Find"));
    txtFind_->setClearButtonEnabled(true);
    chkEverywhere_->setObjectName("chkEverywhere");
    chkEverywhere_->setAccessibleName(tr("All worksheets"));
    chkEverywhere_->setToolTip(tr("Find in every worksheet of the report"));
    lblFound_->setObjectName("lblFound");
    auto* label = new QLabel(tr("F&ind:"), this);
    label->setBuddy(txtFind_);
    auto* line = new QHBoxLayout(this);
    line->addWidget(label);
    line->addWidget(txtFind_, 1);
    line->addWidget(chkEverywhere_);
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
    connect(txtFind_, &QLineEdit::textEdited, this, &FindBar::Text_Changed);
    connect(chkEverywhere_, &QCheckBox::clicked, this, &FindBar::Text_Changed);
    hide();
}

void FindBar::Open() {
    show();
    origin_ = grd_.currentIndex();
    txtFind_->setFocus(Qt::ShortcutFocusReason);
    txtFind_->selectAll();
}

void FindBar::Close() {
    hide();
    lblFound_->clear();
    grd_.setFocus(Qt::OtherFocusReason);
}

FindBar::Hits FindBar::Find_Hits() const {
    Hits hits;
    const CellSearch search(Plain_Text(txtFind_->text()));
    hits.here = grd_.Find_All(search);
    if (!chkEverywhere_->isChecked()) return hits;
    const Item& here = grd_.Model().Form().Worksheet();
    bool isBehind = false;
    for (const SearchedForm& form : Searched_Forms(mode_)) {
        if (form.item == here.Name()) {
            isBehind = true;
            continue;
        }
        std::ranges::move(Find_In_Form(form.mode, form.item, search),
                          std::back_inserter(isBehind ? hits.behind : hits.before));
    }
    return hits;
}

std::size_t FindBar::Hits_Before(const Hits& hits, const QModelIndex& cell) const {
    const auto here = std::ranges::count_if(hits.here, [&](const QModelIndex& hit) {
        return std::pair(hit.row(), hit.column()) < std::pair(cell.row(), cell.column());
    });
    return hits.before.size() + static_cast<std::size_t>(here);
}

void FindBar::Text_Changed() {
    lblFound_->clear();
    if (txtFind_->text().isEmpty()) return;
    const Hits hits = Find_Hits();
    if (hits.Count() == 0) return Show_None();
    const std::size_t place = Hits_Before(hits, origin_) % hits.Count();
    const std::size_t here = place - hits.before.size();
    if (place >= hits.before.size() && here < hits.here.size()) {
        grd_.setCurrentIndex(hits.here[here]);
        Show_Place(hits, place);
    } else {
        // Another form is not opened for every letter.
        lblFound_->setText(tr("%1 in other worksheets; Enter goes there.").arg(hits.Count()));
    }
}

void FindBar::Next(bool backwards) {
    if (txtFind_->text().isEmpty()) return Open();
    const Hits hits = Find_Hits();
    if (hits.Count() == 0) {
        The_Platform().Beep();
        return Show_None();
    }
    const QModelIndex cursor = grd_.currentIndex();
    const bool isOnHit = std::ranges::find(hits.here, cursor) != hits.here.end();
    std::size_t place = Hits_Before(hits, cursor);
    if (backwards) {
        place += hits.Count() - 1;
    } else if (isOnHit) {
        ++place;
    }
    place %= hits.Count();
    if (place < hits.before.size()) {
        emit Found_Elsewhere(hits.before[place], txtFind_->text(), mode_);
    } else if (const std::size_t here = place - hits.before.size(); here < hits.here.size()) {
        grd_.setCurrentIndex(hits.here[here]);
        origin_ = grd_.currentIndex();
        Show_Place(hits, place);
    } else {
        emit Found_Elsewhere(hits.behind[here - hits.here.size()], txtFind_->text(), mode_);
    }
}

void FindBar::Go_On(const QString& text, FormMode mode) {
    mode_ = mode;
    txtFind_->setText(text);
    chkEverywhere_->setChecked(true);
    Open();
    txtFind_->deselect();
    const Hits hits = Find_Hits();
    if (hits.Count() > 0) Show_Place(hits, Hits_Before(hits, grd_.currentIndex()) % hits.Count());
}

void FindBar::Show_Place(const Hits& hits, std::size_t place) {
    lblFound_->setText(tr("%1 of %2").arg(place + 1).arg(hits.Count()));
}

void FindBar::Show_None() {
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
