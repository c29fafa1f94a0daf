#include "shell/form_windows.h"

#include <QEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QStyle>
#include <algorithm>

#include "calc/driver.h"
#include "common/db/error.h"
#include "common/db/sql_text.h"
#include "common/platform.h"
#include "common/text.h"
#include "common/wait_pointer.h"
#include "report/entry_age.h"
#include "report/open_report.h"
#include "report/window.h"
#include "screens/view/qt_text.h"
#include "shell/form_maker.h"
#include "shell/window_places.h"

namespace tallmar {

namespace {

constexpr const char* kCloseAllText =
    "This process requires all forms to be closed.  Pressing OK will close all open forms.";
constexpr std::string_view kFormBeginnings[] = {"FRMEDIT", "FRMVIEW"};
// Forms that stay open when the identity of the report changes.
constexpr std::string_view kIdentityForms[] = {"frmEditS2", "frmViewS2"};
constexpr std::string_view kCostCenterForm = "frmEditCCs";
constexpr std::string_view kReadOnlyTitle = "Read Only Report";
constexpr std::string_view kReadOnlyText =
    "The report is read only and cannot be calculated.  Report File > Save As makes a copy that can.";
constexpr int kMainHeightPercent = 90;
constexpr int kMinZoom = 50, kMaxZoom = 300;

bool Begins_So(const QObject& form, std::string_view beginning) {
    return Begins_With(To_Upper(Plain_Text(form.objectName())), beginning);
}

bool Is_Worksheet_Form(const QObject& form) {
    return std::ranges::any_of(kFormBeginnings, [&](std::string_view beginning) { return Begins_So(form, beginning); });
}

}  // namespace

FormWindows::FormWindows(QMdiArea* area) : QObject(area), area_(area), zoom_(Remembered_Zoom()) {
    connect(area, &QMdiArea::subWindowActivated, this, &FormWindows::Changed);
}

void FormWindows::Open_Worksheet_Form(FormMode mode, const Item& item) {
    // A view of a row that is not stored yet would be stale at once.
    if (WorksheetForm* edit = mode == FormMode::View ? Find_Form(item, FormMode::Edit) : nullptr) {
        if (!edit->Commit_Grid()) return;
    }
    if (WorksheetForm* open = Find_Form(item, mode)) {
        Activate(*open);
        return;
    }
    const FormDescription* description = Form_To_Open(mode, item);
    if (description == nullptr) {
        The_Platform().Message_Box(Unknown_Worksheet(mode, item.Name()), kExclamation, kProgramTitle);
        return;
    }
    WorksheetForm* form = Make_Form(mode, *description, item);
    form->Grid().Set_Zoom(zoom_);
    Connect(*form);
    auto* window = new QMdiSubWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWidget(form);
    window->setWindowTitle(Qt_Text(form->Caption()));
    window->setWindowIcon(area_->window()->windowIcon());
    // The Window menu has the keys of the window's own menu.
    for (QAction* action : window->systemMenu()->actions()) action->setShortcuts({});
    form->installEventFilter(this);
    window->installEventFilter(this);
    area_->addSubWindow(window);
    Show_In_Place(*window, *form);
    // A text above the grid comes before it in the order of the Tab key.
    form->Grid().setFocus();
    The_Platform().Do_Events();
    emit Changed();
}

void FormWindows::Show_In_Place(QMdiSubWindow& window, WorksheetForm& form) {
    if (area_->viewMode() == QMdiArea::TabbedView) {
        window.showMaximized();
        return;
    }
    const QSize area = area_->viewport()->size();
    QRect place(QPoint(), window.sizeHint().expandedTo(window.minimumSizeHint()));
    if (const auto remembered = Remembered_Place(Plain_Text(form.objectName()))) {
        place = *remembered;
    } else {
        const int step = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
        const auto others = static_cast<int>(Forms().size()) - 1;
        place.moveTopLeft(QPoint(step, step) * (others % 8));
    }
    place.setHeight(std::min(place.height(), area_->window()->height() * kMainHeightPercent / 100));
    window.setGeometry(Fit_Into(place, area));
    window.show();
}

void FormWindows::Connect(WorksheetForm& form) {
    identity_ = Present_Identity();
    connect(&form, &WorksheetForm::Open_Requested, this, [this](FormMode mode, const QString& item) {
        const WaitPointer wait;
        Open_Worksheet_Form(mode, Plain_Text(item));
    });
    connect(&form, &WorksheetForm::Recalculate_Requested, this, [this, &form] { Recalculate(form); });
    connect(&form, &WorksheetForm::Cell_Changed, this,
            [this, &form] { Close_Worksheet_Form(form.Worksheet(), FormMode::View); });
    connect(&form, &WorksheetForm::Stored, this, [this, &form](const QString& what) {
        const FormDescription& description = form.Model().Form().Description();
        if (description.follow != nullptr || description.rowStored != nullptr) Worksheets_Changed(form);
        Follow_Identity(form);
        emit Stored(what);
    });
    connect(&form.Grid(), &GridView::Zoom_Changed, this, &FormWindows::Set_Zoom);
    connect(&form.Grid(), &GridView::Selection_Changed, this, &FormWindows::Selection_Changed);
    connect(&form, &WorksheetForm::Found_Elsewhere, this, &FormWindows::Go_To_Found);
}

void FormWindows::Go_To_Found(const FoundCell& cell, const QString& text, FormMode mode) {
    Open_Worksheet_Form(cell.mode, cell.item);
    if (WorksheetForm* form = Find_Form(cell.item, cell.mode)) form->Show_Found(cell, text, mode);
}

void FormWindows::Worksheets_Changed(const WorksheetForm& by) {
    for (WorksheetForm* form : Forms()) {
        if (form != &by && Form_To_Open(form->Mode(), form->Worksheet()) == nullptr) Drop(*form);
    }
    The_Platform().Refresh_Menus();
}

void FormWindows::Close_Worksheet_Form(const Item& item, FormMode mode) {
    if (WorksheetForm* form = Find_Form(item, mode)) Window_Of(*form)->close();
    if (mode == FormMode::View) The_Platform().Set_Enabled("mnuReportSubmit", false);
}

WorksheetForm* FormWindows::Find_Form(const Item& item, FormMode mode) const {
    for (WorksheetForm* form : Forms()) {
        if (form->Mode() == mode && form->Worksheet() == item) return form;
    }
    return nullptr;
}

bool FormWindows::Form_Is_Loaded(std::string_view name) const {
    return std::ranges::any_of(
        Forms(), [&](const WorksheetForm* form) { return Same_Text(Plain_Text(form->objectName()), name); });
}

bool FormWindows::Close_All_Forms(std::string_view but) {
    std::vector<WorksheetForm*> forms = Forms();
    std::erase_if(forms, [&](const WorksheetForm* form) {
        return !Is_Worksheet_Form(*form) || (!but.empty() && Same_Text(Plain_Text(form->objectName()), but));
    });
    if (forms.empty()) return false;
    const std::string title = "Close form " + Plain_Text(forms.front()->objectName());
    const Answer answer = The_Platform().Message_Box(kCloseAllText, kOkCancel + kQuestion + kDefaultButton2, title);
    if (answer != Answer::Ok) return true;
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
        if (!Window_Of(**form)->close()) return true;
    }
    return false;
}

bool FormWindows::Close_Form_Family(std::string_view beginning) {
    const std::vector<WorksheetForm*> forms = Forms();
    bool all = true;
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
        if (Begins_So(**form, beginning)) all = Window_Of(**form)->close() && all;
    }
    return all;
}

bool FormWindows::Commit_Rows() {
    return std::ranges::all_of(Forms(), [](WorksheetForm* form) { return form->Commit_Grid(); });
}

void FormWindows::Requery_All() {
    for (WorksheetForm* form : Forms()) {
        if (Form_To_Open(form->Mode(), form->Worksheet()) != nullptr) {
            form->Requery();
            form->Refresh_Neighbours();
        } else {
            Drop(*form);
        }
    }
}

void FormWindows::Show_Age() {
    for (WorksheetForm* form : Forms()) {
        if (auto* view = qobject_cast<ViewForm*>(form)) view->Show_Age();
    }
}

// The grid is still at work on the row that it has stored: windows close when it is done.
void FormWindows::Follow_Identity(WorksheetForm& form) {
    const Identity identity = Present_Identity();
    if (identity == identity_) return;
    identity_ = identity;
    QMetaObject::invokeMethod(
        this, [this, by = QPointer<WorksheetForm>(&form)] { Identity_Changed(by); }, Qt::QueuedConnection);
}

void FormWindows::Identity_Changed(const WorksheetForm* by) {
    identity_ = Present_Identity();
    for (WorksheetForm* form : Forms()) {
        const std::string name = Plain_Text(form->objectName());
        if (form == by) continue;
        if (Form_To_Open(form->Mode(), form->Worksheet()) == nullptr) {
            Drop(*form);
        } else if (std::ranges::find(kIdentityForms, name) != std::end(kIdentityForms)) {
            form->Requery();
        } else if (name != kCostCenterForm) {
            Window_Of(*form)->close();
        }
    }
}

// Its rows are gone: there is nothing to store. One of its buttons may have asked for what made them go.
void FormWindows::Drop(WorksheetForm& form) {
    QMdiSubWindow* window = Window_Of(form);
    area_->removeSubWindow(window);
    window->deleteLater();
}

void FormWindows::Drop_All() {
    for (WorksheetForm* form : Forms()) delete Window_Of(*form);
}

bool Calculate_Report() {
    if (db.Is_Read_Only()) {
        The_Platform().Message_Box(kReadOnlyText, kExclamation, kReadOnlyTitle);
        return false;
    }
    const WaitPointer wait;
    try {
        Calc_All();
        return true;
    } catch (const DbError& error) {
        The_Platform().Message_Box(error.Description(), kStop, "Error: Calculation Failed");
        return false;
    }
}

void FormWindows::Recalculate(WorksheetForm& form) {
    if (!Commit_Rows()) return;
    const Item item = form.Worksheet();
    const bool edits = form.Mode() == FormMode::Edit;
    form.setEnabled(false);
    const bool calculated = Calculate_Report();
    form.setEnabled(true);
    // A form that is shut loses its focus.
    form.Grid().setFocus();
    Requery_All();
    if (edits && calculated) Open_Worksheet_Form(FormMode::View, item);
    emit Stored(calculated ? Qt_Text(Entry_Age().Calculation_Text()) : tr("Not calculated."));
}

std::vector<WorksheetForm*> FormWindows::Forms() const {
    std::vector<WorksheetForm*> forms;
    for (const QMdiSubWindow* window : area_->subWindowList(QMdiArea::CreationOrder)) {
        if (auto* form = qobject_cast<WorksheetForm*>(window->widget())) forms.push_back(form);
    }
    return forms;
}

WorksheetForm* FormWindows::Active() const {
    const QMdiSubWindow* window = area_->currentSubWindow();
    return window == nullptr ? nullptr : qobject_cast<WorksheetForm*>(window->widget());
}

std::string FormWindows::Caption_Out_Of_Sight() const {
    const WorksheetForm* form = Active();
    if (form == nullptr || area_->viewMode() == QMdiArea::TabbedView || !Window_Of(*form)->isMaximized()) return {};
    return form->Caption();
}

void FormWindows::Activate(WorksheetForm& form) {
    QMdiSubWindow* window = Window_Of(form);
    if (window->isMinimized()) window->showNormal();
    area_->setActiveSubWindow(window);
    window->raise();
    form.Grid().setFocus();
}

void FormWindows::Set_Zoom(int percent) {
    percent = std::clamp(percent, kMinZoom, kMaxZoom);
    if (percent == zoom_) return;
    zoom_ = percent;
    Remember_Zoom(percent);
    for (const WorksheetForm* form : Forms()) form->Grid().Set_Zoom(percent);
}

void FormWindows::Set_Tabs(bool tabs) {
    area_->setViewMode(tabs ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
    if (!tabs) {
        for (QMdiSubWindow* window : area_->subWindowList()) window->showNormal();
    }
    emit Changed();
}

QMdiSubWindow* FormWindows::Window_Of(const WorksheetForm& form) const {
    return qobject_cast<QMdiSubWindow*>(form.parentWidget());
}

// A form stands in a window of its own, and the two close together, whichever of them is asked to.
bool FormWindows::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange)
        QMetaObject::invokeMethod(this, &FormWindows::Changed, Qt::QueuedConnection);
    if (event->type() != QEvent::Close) return QObject::eventFilter(watched, event);
    if (auto* window = qobject_cast<QMdiSubWindow*>(watched)) {
        closing_ = window->widget();
        const bool hasPlace = area_->viewMode() == QMdiArea::SubWindowView && !window->isMaximized() &&
                              !window->isMinimized() && closing_ != nullptr;
        if (hasPlace) Remember_Place(Plain_Text(closing_->objectName()), window->geometry());
        return false;
    }
    if (watched == closing_) {
        closing_ = nullptr;
        return false;
    }
    event->ignore();
    // A form that is closing already would not ask its row again: its window closes when this is over.
    if (auto* form = qobject_cast<WorksheetForm*>(watched)) {
        QMetaObject::invokeMethod(Window_Of(*form), &QWidget::close, Qt::QueuedConnection);
    }
    return true;
}

}  // namespace tallmar
