#include "screens/edit/edit_form.h"

#include <QCloseEvent>
#include <QLineEdit>

#include "common/platform.h"
#include "common/wait_pointer.h"
#include "screens/edit/grid_foot.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr std::string_view kCloseTitle = "Error: Worksheet Not Finished";

}  // namespace

EditForm::EditForm(const FormDescription& description, Item item, QWidget* parent)
    : WorksheetForm(FormMode::Edit, new EditModel(description, std::move(item)), parent), grd_(new EditGrid(this)) {
    Set_Up(grd_);
    if (!description.window.foot.empty()) Add_Below_Grid(new GridFoot(*grd_, this));
    connect(grd_, &EditGrid::Told, this, &WorksheetForm::Stored);
    connect(grd_, &EditGrid::Entered, this, [this] {
        if (!std::exchange(changed_, true)) emit Cell_Changed();
    });
    connect(grd_, &EditGrid::Row_Stored, this, [this] { changed_ = false; });
    // A view may be opened before the next entry.
    connect(grd_, &EditGrid::Row_Discarded, this, [this] { changed_ = false; });

    Add_Row_Buttons();
    QPushButton* open = Add_Button("cmdOpenView", tr("&Open View"), tr("Show the whole worksheet, totals included"));
    connect(open, &QPushButton::clicked, this, [this] {
        if (!Commit_Grid()) return;
        const WaitPointer wait;
        emit Open_Requested(FormMode::View, Qt_Text(Worksheet().Name()));
    });
    QPushButton* recalculate =
        Add_Button("cmdRecalculate", tr("Recalc&ulate"), tr("Calculate the whole report and show this worksheet"));
    connect(recalculate, &QPushButton::clicked, this, [this] {
        if (Commit_Grid()) emit Recalculate_Requested();
    });
    if (description.window.statLinks) {
        Add_Button("cmdStatLinks", tr("&Stat Links"), tr("Links of statistics are not available yet"))
            ->setEnabled(false);
    }
    Add_Walk_Buttons();
    Edit_Above();
    grd_->Place_Cursor_First();
    Layout_Buttons();
}

EditForm::~EditForm() {
    // Its entry finishes the editing as it goes.
    if (Above() != nullptr) Above()->disconnect(this);
}

void EditForm::Add_Row_Buttons() {
    const FormDescription& form = Form().Description();
    if (form.lines.add != nullptr) {
        QPushButton* add = Add_Button("cmdAdd", tr("&Add"), tr("Add a line"));
        connect(add, &QPushButton::clicked, grd_, &EditGrid::Add_Row);
    }
    if (form.lines.remove != nullptr) {
        QPushButton* remove = Add_Button("cmdDelete", tr("&Delete"), tr("Remove the line that the cursor is in"));
        connect(remove, &QPushButton::clicked, grd_, &EditGrid::Remove_Row);
    }
}

bool EditForm::Commit_Grid() {
    return Store_Above() && grd_->Commit();
}

void EditForm::Reload() {
    if (!Commit_Grid()) return;
    grd_->Entries().Clear_Cursor();
    WorksheetForm::Reload();
}

void EditForm::closeEvent(QCloseEvent* event) {
    try {
        WorksheetForm::closeEvent(event);
    } catch (const DbError& error) {
        // The rows are stored; what their closing arranges can be done by the next.
        The_Platform().Message_Box(error.Description(), kStop, kCloseTitle);
        event->accept();
    }
}

void EditForm::Edit_Above() {
    if (Above() == nullptr) return;
    connect(Above(), &QLineEdit::editingFinished, this, &EditForm::Store_Above);
    // An undo may reach it.
    connect(&Model(), &QAbstractItemModel::dataChanged, this, &EditForm::Show_Above);
}

void EditForm::Show_Above() {
    if (!Above()->isModified()) Read_Text_Above();
}

bool EditForm::Store_Above() {
    if (Above() == nullptr || !Above()->isModified()) return true;
    const TextAbove& above = *Form().Description().window.above;
    const QString text = Above()->text();
    // A box takes the focus, which finishes the editing once more.
    Above()->setModified(false);
    const bool stored = grd_->Enter_In_Line(above.line, above.field, text);
    Show_Above();
    return stored;
}

}  // namespace tallmar
