#include "shell/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "common/db_error.h"
#include "common/platform.h"
#include "report/open_report.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/caption.h"
#include "shell/job_guard.h"
#include "shell/logo.h"
#include "shell/recent_files.h"
#include "shell/window_places.h"

namespace tallmar {

namespace {

struct MenuKey {
    const char* keys;
    const char* name;
};
constexpr MenuKey kMenuKeys[] = {{"F10", "mnuReport"}, {"Alt+E", "mnuEdit"}, {"Alt+V", "mnuView"}};
// What works on the entries of a form, and not on a view form.
constexpr const char* kEntryCommands[] = {"mnuEditUndo", "mnuEditRedo", "mnuEditPaste", "mnuEditFillDown"};

constexpr int kLogoSize = 24;
constexpr int kIconSize = 64;
constexpr int kMargin = 6;
constexpr QSize kFirstSize{1100, 760};
constexpr int kFirstShare = 80;  // of the screen, in percent
constexpr int kHelpLines = 22;
constexpr int kHelpColumns = 60;

}  // namespace

FrmMain::FrmMain(const JobGuard& guard)
    : guard_(guard),
      pages_(new QStackedWidget(this)),
      welcome_(new WelcomePanel(this)),
      area_(new QMdiArea(this)),
      head_(new QWidget(this)),
      picLogo_(new QLabel(head_)),
      lblCRFName_(new QLabel(head_)),
      lblForm_(new QLabel(head_)),
      lblSelection_(new QLabel(this)),
      lblEntries_(new QLabel(this)),
      txtCalcMsg_(new QLabel(this)),
      help_(new HelpScroller(area_->viewport())),
      forms_(new FormWindows(area_)),
      menus_(new MenuBar(menuBar())) {
    setObjectName("frmMain");
    setAcceptDrops(true);
    Lay_Out();
    Draw();
    connect(welcome_, &WelcomePanel::New_Requested, this, [this] { emit Command_Chosen("mnuReportNew"); });
    connect(welcome_, &WelcomePanel::Open_Requested, this, [this] { emit Command_Chosen("mnuReportOpen"); });
    connect(welcome_, &WelcomePanel::Exit_Requested, this, [this] { emit Command_Chosen("mnuReportExit"); });
    connect(menus_, &MenuBar::Chosen, this, &FrmMain::Command_Chosen);
    connect(menus_, &MenuBar::Worksheet_Chosen, forms_,
            [this](FormMode mode, const QString& item) { forms_->Open_Worksheet_Form(mode, Plain_Text(item)); });
    connect(forms_, &FormWindows::Changed, this, &FrmMain::Forms_Changed);
    connect(forms_, &FormWindows::Stored, this, &FrmMain::Tell);
    connect(forms_, &FormWindows::Selection_Changed, this, &FrmMain::Show_Selection);
    connect(&menus_->Menu("mnuWindowList"), &QMenu::aboutToShow, this, &FrmMain::Fill_Window_List);
    connect(&menus_->Menu("mnuReport"), &QMenu::aboutToShow, menus_, &MenuBar::Show_Checked_Entries);
    connect(&menus_->Menu("mnuReportRecent"), &QMenu::aboutToShow, this, &FrmMain::Fill_Recent_Files);
    // Two of the menus have no access key in their captions.
    for (const MenuKey& menu : kMenuKeys) {
        auto* key = new QShortcut(QKeySequence(menu.keys), this);
        connect(key, &QShortcut::activated, this,
                [this, &menu] { menuBar()->setActiveAction(menus_->Find(menu.name)); });
    }
    forms_->Set_Tabs(Tabs_Remembered());
    menus_->Find("mnuWindowTabbed")->setChecked(Tabs_Remembered());
    if (!restoreGeometry(Remembered_Geometry())) resize(First_Size());
    Forms_Changed();
}

// Most of a large screen; on a small one the line at the foot stays in sight.
QSize FrmMain::First_Size() const {
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize available = screen()->availableSize();
    return (available * kFirstShare / 100).expandedTo(kFirstSize).boundedTo(available - QSize(title, 2 * title));
}

void FrmMain::Lay_Out() {
    picLogo_->setObjectName("picLogo");
    picLogo_->setAccessibleName(tr("Tallmar 1728"));
    picLogo_->setVisible(false);
    lblCRFName_->setObjectName("lblCRFName");
    lblCRFName_->setAccessibleName(tr("Cost Report File"));
    lblCRFName_->setTextFormat(Qt::PlainText);
    lblCRFName_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblCRFName_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblCRFName_->setVisible(false);
    lblForm_->setObjectName("lblForm");
    lblForm_->setAccessibleName(tr("Worksheet form"));
    lblForm_->setTextFormat(Qt::PlainText);
    auto* line = new QHBoxLayout(head_);
    line->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    line->addWidget(picLogo_);
    line->addWidget(lblCRFName_, 1);
    line->addWidget(lblForm_);
    head_->setVisible(false);

    area_->setObjectName("mdiForms");
    area_->setAccessibleName(tr("Worksheet windows"));
    area_->setTabsClosable(true);
    area_->setTabsMovable(true);
    area_->setDocumentMode(true);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    area_->viewport()->installEventFilter(this);
    pages_->addWidget(welcome_);
    pages_->addWidget(area_);

    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(head_);
    column->addWidget(pages_, 1);
    setCentralWidget(page);

    txtCalcMsg_->setObjectName("txtCalcMsg");
    txtCalcMsg_->setAccessibleName(tr("Progress"));
    txtCalcMsg_->setTextFormat(Qt::PlainText);
    txtCalcMsg_->setVisible(false);
    statusBar()->setObjectName("sbrMain");
    lblSelection_->setObjectName("lblSelection");
    lblSelection_->setTextFormat(Qt::PlainText);
    lblEntries_->setObjectName("lblEntries");
    lblEntries_->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(txtCalcMsg_);
    statusBar()->addPermanentWidget(lblSelection_);
    statusBar()->addPermanentWidget(lblEntries_);
}

void FrmMain::Draw() {
    picLogo_->setPixmap(Logo({kLogoSize, kLogoSize}, palette()));
    setWindowIcon(Logo({kIconSize, kIconSize}, palette()));
    area_->setBackground(palette().brush(QPalette::Window));
}

// Behind the worksheet windows, in the middle.
void FrmMain::Place_Help() {
    QLabel& label = help_->Label();
    const QFontMetrics font = label.fontMetrics();
    const QSize area = area_->viewport()->size();
    const QSize size(font.averageCharWidth() * kHelpColumns, font.lineSpacing() * kHelpLines);
    QRect place(QPoint(), size.boundedTo(area));
    place.moveCenter(area_->viewport()->rect().center());
    label.setGeometry(place);
    label.lower();
}

void FrmMain::Refresh_Menus() {
    if (!Report_Is_Open()) forms_->Drop_All();
    menus_->Show(Menu_State(forms_->Form_Is_Loaded("frmEditCCs")));
    if (!openReport.CRFPath.empty() && Report_Is_Open()) Add_Recent_File(openReport.CRFPath);
    menus_->Set_Enabled("mnuReportRecent", !Recent_Files().empty());
    for (WorksheetForm* form : forms_->Forms()) form->Refresh_Neighbours();
    Tell_Of_Report();
    Show_Age();
}

void FrmMain::Tell_Of_Report() {
    const std::string path = Report_Is_Open() ? openReport.CRFPath : std::string();
    if (std::exchange(reportPath_, path) == path || path.empty()) return;
    const QString title = Qt_Text(openReport.CRFTitle);
    Tell(db.Is_Read_Only() ? tr("%1 is read only and takes no entry. Save As makes a copy that does.").arg(title)
                           : tr("%1 opened.").arg(title));
}

void FrmMain::Show_Age() {
    QString text;
    if (Report_Is_Open()) {
        openReport.entryAge.Remember(openReport.CRFPath);
        text = db.Is_Read_Only() ? tr("Read only") : Qt_Text(openReport.entryAge.Text());
    }
    lblEntries_->setText(text);
    lblEntries_->setAccessibleName(text);
    forms_->Show_Age();
}

void FrmMain::Follow(ReportEvent event) {
    switch (event) {
        case ReportEvent::Opening:
            return Show_Welcome(false);
        case ReportEvent::NotChosen:
            return Show_Welcome(!Report_Is_Open());
        case ReportEvent::Making:
            return;
        case ReportEvent::Named:
            return Show_Name();
        case ReportEvent::Opened:
            Show_Head(true);
            help_->Start();
            Show_Name();
            return Show_Welcome(false);
        case ReportEvent::Closed:
            help_->Stop();
            Show_Name();
            Show_Welcome(true);
            help_->Label().setVisible(false);
            return Show_Head(false);
    }
}

// A window that is disabled loses its focus, which goes back where it was.
void FrmMain::Set_Busy(bool busy) {
    if (busy && isEnabled()) focus_ = focusWidget();
    setEnabled(!busy);
    if (busy) return;
    if (focus_ != nullptr && focus_->isVisible()) {
        focus_->setFocus();
    } else if (welcome_->isVisible()) {
        welcome_->setFocus();
    }
}

void FrmMain::Show_Welcome(bool on) {
    pages_->setCurrentWidget(on ? static_cast<QWidget*>(welcome_) : area_);
    if (on) welcome_->setFocus();
}

void FrmMain::Set_Caption(const QString& caption) {
    caption_ = caption;
    setWindowTitle(caption);
}

void FrmMain::Show_Name() {
    Set_Caption(Qt_Text(Window_Caption()));
    const QString path = Qt_Text(Path_Line());
    lblCRFName_->setText(path);
    lblCRFName_->setToolTip(path);
}

void FrmMain::Show_Head(bool on) {
    picLogo_->setVisible(on);
    lblCRFName_->setVisible(on);
    head_->setVisible(on);
}

void FrmMain::Show_Progress(const QString& text) {
    txtCalcMsg_->setText(text);
    txtCalcMsg_->setVisible(!text.isEmpty());
    txtCalcMsg_->repaint();
}

void FrmMain::Tell(const QString& what) {
    told_ = what;
    statusBar()->showMessage(told_);
    Show_Age();
}

void FrmMain::Look_For_Changes() {
    if (guard_.Is_On() || QApplication::activeModalWidget() != nullptr || !Report_Is_Open()) return;
    Refresh_Menus();
    if (!openReport.entryAge.Look_Elsewhere(db)) return;
    forms_->Reload_All();
    Tell(tr("Another program has changed the report: its worksheets were read again."));
}

void FrmMain::Forms_Changed() {
    const bool some = !forms_->Forms().empty();
    menus_->Enable_Form_Entries(some);
    const WorksheetForm* active = forms_->Active();
    const bool edits = active != nullptr && active->Mode() == FormMode::Edit;
    for (const char* entry : kEntryCommands) menus_->Set_Enabled(entry, edits);
    lblForm_->setText(Qt_Text(forms_->Caption_Out_Of_Sight()));
    Show_Age();
    Show_Selection();
}

void FrmMain::Show_Selection() {
    const WorksheetForm* active = forms_->Active();
    const QString text = active == nullptr ? QString() : active->Grid().Selection_Summary();
    lblSelection_->setText(text);
    lblSelection_->setAccessibleName(text);
}

void FrmMain::Fill_Window_List() {
    QMenu& menu = menus_->Menu("mnuWindowList");
    menu.clear();
    int number = 0;
    for (WorksheetForm* form : forms_->Forms()) {
        ++number;
        const QString key = number < 10 ? "&" + QString::number(number) + " " : QString();
        QAction* action = menu.addAction(key + Qt_Text(form->Caption()).replace("&", "&&"));
        action->setCheckable(true);
        action->setChecked(form == forms_->Active());
        connect(action, &QAction::triggered, form, [this, form] { forms_->Activate(*form); });
    }
}

void FrmMain::Fill_Recent_Files() {
    QMenu& menu = menus_->Menu("mnuReportRecent");
    menu.clear();
    int number = 0;
    for (const std::string& path : Recent_Files()) {
        ++number;
        const QString shown = Qt_Text(path);
        QAction* action = menu.addAction("&" + QString::number(number) + " " + QString(shown).replace("&", "&&"));
        connect(action, &QAction::triggered, this, [this, shown] { emit Recent_File_Chosen(shown); });
    }
}

// A menu wipes the line at the foot when it leaves an entry: what was shown comes back.
bool FrmMain::event(QEvent* event) {
    if (event->type() != QEvent::StatusTip || !static_cast<QStatusTipEvent*>(event)->tip().isEmpty()) {
        return QMainWindow::event(event);
    }
    statusBar()->showMessage(told_);
    return true;
}

void FrmMain::closeEvent(QCloseEvent* event) {
    // A row that cannot be stored keeps its form, and the form the program.
    if (guard_.Is_On() || !forms_->Close_Form_Family("")) return event->ignore();
    Remember_Geometry(saveGeometry());
    setUpdatesEnabled(false);
    Report_Release();
    event->accept();
    QApplication::quit();
}

void FrmMain::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) Draw();
    // Not in the middle of what closed the box over the window.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        QTimer::singleShot(0, this, &FrmMain::Look_For_Changes);
    }
    // A worksheet window that fills the area would write its own name behind the caption.
    if (event->type() == QEvent::WindowTitleChange && windowTitle() != caption_) setWindowTitle(caption_);
    QMainWindow::changeEvent(event);
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == area_->viewport() && event->type() == QEvent::Resize) Place_Help();
    return QMainWindow::eventFilter(watched, event);
}

void FrmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void FrmMain::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The other program waits until the drop is over: a box must not hold it up.
    QTimer::singleShot(0, this, [this, urls = event->mimeData()->urls()] { emit Files_Dropped(urls); });
}

}  // namespace tallmar
