#include "shell/form_windows.h"

#include <QEvent>
#include <QLayout>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QStyle>
#include <algorithm>

#include "common/db_error.h"
#include "common/platform.h"
#include "common/program.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/wait_pointer.h"
#include "report/open_report.h"
#include "screens/report_jobs.h"
#include "screens/view/qt_text.h"
#include "shell/form_maker.h"
#include "shell/given_places.h"
#include "shell/window_places.h"

namespace tallmar {

namespace {

constexpr const char* kCloseAllText =
    "This process requires all forms to be closed.  Pressing OK will close all open forms.";
constexpr std::string_view kFormBeginnings[] = {"FRMEDIT", "FRMVIEW"};
constexpr std::string_view kCostCenterForm = "frmEditCCs";
constexpr int kMainHeightPercent = 90;
constexpr int kMinZoom = 50, kMaxZoom = 300;

bool Begins_So(const QObject& form, std::string_view beginning) {
    return Begins_With(To_Upper(Plain_Text(form.objectName())), beginning);
}

// The other form of a worksheet shows the cell that the person came from.
void Put_Cursor(const WorksheetForm& to, const WorksheetForm& from) {
    const QModelIndex at = from.Grid().currentIndex();
    if (!at.isValid() || to.Model().Form().Description().order.empty()) return;
    const int row = to.Model().Row_Of(from.Model().Line(at.row()));
    const int column = to.Model().Column_Of(from.Model().Column(at.column()).field);
    if (row >= 0) to.Grid().setCurrentIndex(to.Model().index(row, std::max(column, 0)));
}

bool Is_Worksheet_Form(const QObject& form) {
    return std::ranges::any_of(kFormBeginnings, [&](std::string_view beginning) { return Begins_So(form, beginning); });
}

}  // namespace

FormWindows::FormWindows(QMdiArea* area)
    : QObject(area), area_(area), places_(new GivenPlaces(area)), zoom_(Remembered_Zoom()) {
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
    if (area_->viewMode() == QMdiArea::TabbedView) {
        window->showMaximized();
    } else {
        Put_In_Place(*window, *form);
        window->show();
    }
    // A text above the grid comes before it in the order of the Tab key.
    form->Grid().setFocus();
    The_Platform().Do_Events();
    emit Changed();
}

void FormWindows::Put_In_Place(QMdiSubWindow& window, const WorksheetForm& form) {
    QRect place(QPoint(), window.sizeHint().expandedTo(window.minimumSizeHint()));
    if (const auto remembered = Remembered_Place(Plain_Text(form.objectName()))) {
        place.moveTopLeft(remembered->at);
        place.setSize(remembered->size.value_or(place.size()));
    } else {
        const int step = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
        const auto passing = [this](const WorksheetForm* other) { return walked_.contains(other); };
        const auto others =
            static_cast<int>(Forms().size() - 1) - static_cast<int>(std::ranges::count_if(Forms(), passing));
        place.moveTopLeft(QPoint(step, step) * (others % 8));
    }
    place.setHeight(std::min(place.height(), area_->window()->height() * kMainHeightPercent / 100));
    window.setGeometry(Fit_Into(place, area_->viewport()->size()));
    places_->Note(window);
}

// Only what the person chose: a form that was tiled yesterday, or had few rows, has its own size again today.
void FormWindows::Remember(const QMdiSubWindow& window) {
    const bool isPlaced =
        area_->viewMode() == QMdiArea::SubWindowView && !window.isMaximized() && !window.isMinimized();
    if (!isPlaced || window.widget() == nullptr) return;
    const std::string form = Plain_Text(window.widget()->objectName());
    if (places_->Is_Sized(window)) {
        Remember_Place(form, {window.pos(), window.size()});
    } else if (places_->Is_Moved(window)) {
        const auto before = Remembered_Place(form);
        Remember_Place(form, {window.pos(), before ? before->size : std::nullopt});
    }
}

void FormWindows::Cascade() {
    area_->cascadeSubWindows();
    places_->Note_All();
}

void FormWindows::Tile() {
    area_->tileSubWindows();
    places_->Note_All();
}

void FormWindows::Open_From(WorksheetForm& form, FormMode mode, const Item& item) {
    const WaitPointer wait;
    if (mode == form.Mode()) return Walk_To(form, item);
    // An edit form that is open stays in the cell where it was left.
    const bool keepsPlace = mode == FormMode::Edit && Find_Form(item, mode) != nullptr;
    Open_Worksheet_Form(mode, item);
    const WorksheetForm* opened = Find_Form(item, mode);
    if (opened != nullptr && !keepsPlace) Put_Cursor(*opened, form);
}

void FormWindows::Walk_To(WorksheetForm& form, const Item& item) {
    const bool wasOpen = Find_Form(item, form.Mode()) != nullptr;
    Open_Worksheet_Form(form.Mode(), item);
    const WorksheetForm* reached = Find_Form(item, form.Mode());
    if (reached == nullptr) return;
    QMdiSubWindow* left = Window_Of(form);
    const bool isPassedBy = walked_.contains(&form) && !places_->Is_Moved(*left) && !places_->Is_Sized(*left);
    if (!wasOpen) walked_.insert(reached);
    if (isPassedBy) left->close();
}

void FormWindows::Connect(WorksheetForm& form) {
    identity_ = Present_Identity();
    connect(&form, &QObject::destroyed, this, [this](const QObject* gone) { walked_.remove(gone); });
    connect(&form, &WorksheetForm::Open_Requested, this,
            [this, &form](FormMode mode, const QString& item) { Open_From(form, mode, Plain_Text(item)); });
    connect(&form, &WorksheetForm::Recalculate_Requested, this, [this, &form] { Recalculate(form); });
    connect(&form, &WorksheetForm::Cell_Changed, this, [this, &form] {
        walked_.remove(&form);
        Close_Worksheet_Form(form.Worksheet(), FormMode::View);
    });
    connect(&form, &WorksheetForm::Stored, this, [this, &form](const QString& what) {
        const RowRules& rows = form.Model().Form().Description().rows;
        if (rows.follow != nullptr || rows.stored != nullptr) Worksheets_Changed(form);
        Follow_Identity(form);
        emit Stored(what);
    });
    connect(&form.Grid(), &GridView::Zoom_Changing, this, [this, &form] {
        if (Window_Of(form)->width() >= Whole_Width(form)) whole_.insert(&form);
    });
    connect(&form.Grid(), &GridView::Zoom_Changed, this, [this, &form](int percent) {
        if (whole_.remove(&form)) Follow_Zoom(form);
        Set_Zoom(percent);
    });
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
    The_Platform().Menus_Stale();
}

void FormWindows::Close_Worksheet_Form(const Item& item, FormMode mode) {
    if (WorksheetForm* form = Find_Form(item, mode)) Window_Of(*form)->close();
    if (mode == FormMode::View) openReport.ecrMayBeBuilt = false;
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

void FormWindows::Reload_All() {
    for (WorksheetForm* form : Forms()) {
        if (Form_To_Open(form->Mode(), form->Worksheet()) != nullptr) {
            form->Reload();
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
        if (form == by) continue;
        if (Form_To_Open(form->Mode(), form->Worksheet()) == nullptr) {
            Drop(*form);
        } else if (form->Model().Form().Description().window.showsIdentity) {
            form->Reload();
        } else if (Plain_Text(form->objectName()) != kCostCenterForm) {
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

void FormWindows::Recalculate(WorksheetForm& form) {
    if (!Commit_Rows()) return;
    const bool edits = form.Mode() == FormMode::Edit;
    form.setEnabled(false);
    const bool calculated = Calculate_Report();
    form.setEnabled(true);
    // A form that is disabled loses its focus.
    form.Grid().setFocus();
    Reload_All();
    if (edits && calculated) Open_From(form, FormMode::View, form.Worksheet());
    emit Stored(calculated ? Qt_Text(openReport.entryAge.Calculation_Text()) : tr("Not calculated."));
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

int FormWindows::Whole_Width(const WorksheetForm& form) const {
    QMdiSubWindow* window = Window_Of(form);
    if (window->layout() != nullptr) window->layout()->invalidate();
    return std::min(window->sizeHint().width(), area_->viewport()->width());
}

void FormWindows::Follow_Zoom(const WorksheetForm& form) {
    QMdiSubWindow* window = Window_Of(form);
    if (area_->viewMode() == QMdiArea::TabbedView || window->isMaximized() || window->isMinimized()) return;
    const bool isGiven = !places_->Is_Sized(*window) && !places_->Is_Moved(*window);
    QRect place = window->geometry();
    place.setWidth(std::max(Whole_Width(form), window->minimumSizeHint().width()));
    window->setGeometry(Fit_Into(place, area_->viewport()->size()));
    if (isGiven) places_->Note(*window);
}

void FormWindows::Set_Tabs(bool tabs) {
    area_->setViewMode(tabs ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
    for (WorksheetForm* form : Forms()) {
        if (tabs) break;
        QMdiSubWindow& window = *Window_Of(*form);
        window.showNormal();
        if (!places_->Is_Known(window)) Put_In_Place(window, *form);
    }
    emit Changed();
}

QMdiSubWindow* FormWindows::Window_Of(const WorksheetForm& form) const {
    return qobject_cast<QMdiSubWindow*>(form.parentWidget());
}

// A form has a window of its own, and the two close together, whichever is closed first.
bool FormWindows::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange)
        QMetaObject::invokeMethod(this, &FormWindows::Changed, Qt::QueuedConnection);
    if (event->type() != QEvent::Close) return QObject::eventFilter(watched, event);
    if (auto* window = qobject_cast<QMdiSubWindow*>(watched)) {
        closing_ = window->widget();
        Remember(*window);
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
