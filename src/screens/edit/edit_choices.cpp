// The lists of the cells: short ones open by themselves, long ones when they are asked for.
#include <QKeyEvent>
#include <QLineEdit>

#include "screens/edit/cell_editor.h"
#include "screens/edit/edit_grid.h"

namespace tallmar {

void EditGrid::Show_Choices() {
    const PopupList* list = currentIndex().isValid() ? Entries().Popup(currentIndex()) : nullptr;
    if (list == nullptr || Is_Editing() || asking_) return;
    Close_Choices();
    scrollTo(currentIndex());
    choices_ = new ChoiceList(*list, currentIndex().data(Qt::EditRole).toString(), window());
    Place_Choices();
}

void EditGrid::Open_Choices() {
    const QModelIndex at = currentIndex();
    if (!at.isValid() || asking_) return;
    const std::vector<CellChoice> choices = Entries().Choices(at);
    if (choices.empty()) return Show_Choices();
    const bool isTyped = Is_Editing() && editor_->Open()->isModified();
    Edit_Cell();
    QLineEdit* editor = editor_->Open();
    if (editor == nullptr) return;
    choices_ = new ChoiceList(choices, at.data(Qt::EditRole).toString(), window());
    connect(editor, &QLineEdit::textEdited, choices_, &ChoiceList::Narrow);
    if (isTyped) {
        choices_->Narrow(editor->text());
    } else {
        // What is typed next replaces it.
        editor->selectAll();
    }
    Place_Choices();
}

void EditGrid::Place_Choices() {
    connect(choices_, &ChoiceList::Chosen, this, &EditGrid::Choose);
    connect(choices_, &ChoiceList::Left, this, &EditGrid::Close_Choices);
    const QRect cell = visualRect(currentIndex());
    choices_->Show_At(QRect(viewport()->mapTo(window(), cell.topLeft()), cell.size()));
}

void EditGrid::Close_Choices() {
    if (choices_ == nullptr) return;
    choices_->hide();
    choices_->deleteLater();
    choices_ = nullptr;
}

// Up and Down go through the list and, beyond its ends, on to the next rows. Enter takes the entry that was gone to.
bool EditGrid::Choice_Key(QKeyEvent* event) {
    if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    switch (event->key()) {
        case Qt::Key_Up:
            return choices_->Move(-1);
        case Qt::Key_Down:
            return choices_->Move(1);
        case Qt::Key_Tab:
            // Out of the list that narrows the entry goes into the editor, and the key leaves the cell.
            if (Is_Editing() && choices_->Is_Moved()) choices_->Choose_Current();
            return false;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!choices_->Is_Moved()) return false;
            if (Is_Editing()) {
                // The editor has the entry then, and takes it with this key.
                choices_->Choose_Current();
                return false;
            }
            if (Choose(choices_->Current_Value())) Enter(false);
            return true;
        case Qt::Key_Escape:
            Close_Choices();
            return true;
        default:
            return false;
    }
}

bool EditGrid::Choose(const QString& value) {
    Close_Choices();
    if (QLineEdit* editor = editor_->Open()) {
        editor->setText(value);
        editor->setModified(true);
        return true;
    }
    setFocus();
    return !asking_ && Entries().Takes_Entry(currentIndex()) && Enter_Text(currentIndex(), value);
}

}  // namespace tallmar
