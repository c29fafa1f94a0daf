#include "shell/journeys/desk.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

#include "catalogue.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/new_report.h"
#include "report/open_report.h"
#include "report/store.h"
#include "screens/cell_text.h"
#include "screens/view/qt_text.h"
#include "shell/main_commands.h"
#include "shell/menu_tree.h"
#include "shell/startup.h"

namespace tallmar {

Desk::Desk()
    : platform({folder.File("settings"), folder.File("data"), folder.File("program"),
                [] { return Date_Of(2017, 2, 1); },
                [this](const std::string& path) {
                    documents.push_back(path);
                    return true;
                }}) {
    Install_Catalogue(All_Families());
    main = std::make_unique<FrmMain>(platform.Guard());
    Connect_Commands(*main);
    platform.Attach(main.get());
    StartOptions options;
    options.splash = false;
    EXPECT_TRUE(Start_Up(*main, options, true));
    QApplication::setActiveWindow(main.get());
    EXPECT_TRUE(QTest::qWaitForWindowActive(main.get()));
}

Desk::Desk(const FiscalYear& year) : Desk() {
    Make(Report_Path(), year);
}

Desk::~Desk() {
    if (main == nullptr) return;
    main->Forms().Drop_All();
    Report_Release();
    main.reset();
    Settle();
}

void Desk::Make(const std::string& path, const FiscalYear& year) {
    NewReportEntries entries;
    entries.providerNumber = "14-7100";
    entries.facilityName = "Prairie Hearth Home Health";
    EXPECT_TRUE(Create_CRF(path, entries, year));
    The_Platform().Menus_Stale();
}

void Desk::Open(const std::string& path) {
    Open_Recent(*main, path);
    Settle();
}

QAction& Desk::Entry(std::string_view name) const {
    QAction* action = main->Menus().Find(name);
    if (action == nullptr) throw std::logic_error("no entry " + std::string(name));
    return *action;
}

void Desk::Choose(std::string_view name) const {
    QAction& entry = Entry(name);
    EXPECT_TRUE(entry.isEnabled()) << name;
    entry.trigger();
    Settle();
}

QAction* Desk::List_Entry(FormMode mode, const std::string& item) const {
    for (const MenuRow& row : Menu_Rows()) {
        if (row.kind != MenuKind::List || row.edit != (mode == FormMode::Edit)) continue;
        for (QAction* action : main->Menus().Menu(row.parent).actions()) {
            if (Item_In_Caption(Plain_Text(action->text())) == item) return action;
        }
    }
    return nullptr;
}

WorksheetForm* Desk::Find(FormMode mode, std::string_view item) const {
    return main->Forms().Find_Form(std::string(item), mode);
}

WorksheetForm& Desk::Open_Form(FormMode mode, std::string_view item) {
    const std::string tree = mode == FormMode::Edit ? "mnuEditOpen" : "mnuViewOpen";
    if (main->Menus().Find(tree + std::string(item)) != nullptr) {
        Choose(tree + std::string(item));
    } else if (QAction* action = List_Entry(mode, std::string(item))) {
        action->trigger();
        Settle();
    } else {
        throw std::logic_error("no entry opens " + std::string(item));
    }
    form_ = Find(mode, item);
    if (form_ == nullptr) throw std::logic_error("not opened: " + std::string(item));
    form_->Grid().setFocus();
    return *form_;
}

WorksheetForm& Desk::Take_Front() {
    form_ = main->Forms().Active();
    return Form();
}

WorksheetForm& Desk::Form() const {
    if (form_ == nullptr) throw std::logic_error("the form has been closed");
    return *form_;
}

EditGrid& Desk::Grid() const {
    return dynamic_cast<EditForm&>(Form()).Entry_Grid();
}

QMdiSubWindow& Desk::Window() const {
    return dynamic_cast<QMdiSubWindow&>(*Form().parentWidget());
}

QPushButton& Desk::Button(const char* name) const {
    auto* button = Form().findChild<QPushButton*>(QLatin1String(name));
    if (button == nullptr) throw std::logic_error(std::string("no button ") + name);
    return *button;
}

void Desk::Push(const char* button) const {
    EXPECT_TRUE(Button(button).isEnabled()) << button;
    QTest::mouseClick(&Button(button), Qt::LeftButton);
    Settle();
}

QModelIndex Desk::Index(const LineRef& line, const ColumnRef& column) const {
    const GridModel& model = Form().Model();
    const QModelIndex index = model.index(model.Row_Of(line.line), model.Column_Of(column.name));
    if (!index.isValid()) throw std::logic_error("no cell " + line.line.To_Text() + " " + column.name);
    return index;
}

bool Desk::At(const LineRef& line, const ColumnRef& column) const {
    GridView& grd = Form().Grid();
    const QModelIndex index = Index(line, column);
    Focus();
    grd.setFocus();
    if (grd.currentIndex() == index) return true;
    grd.scrollTo(index);
    QTest::mouseClick(grd.viewport(), Qt::LeftButton, {}, grd.visualRect(index).center());
    return grd.currentIndex() == index;
}

void Desk::Type_Over(std::string_view text) const {
    if (Grid().Entries().Is_Name(Grid().currentIndex())) {
        Press(Qt::Key_F2);
        Press(Qt::Key_A, Qt::ControlModifier);
    }
    Type(text);
}

void Desk::Key(const LineRef& line, const ColumnRef& column, std::string_view text) const {
    EXPECT_TRUE(At(line, column)) << line.line.To_Text() << " " << column.name;
    Type_Over(text);
    Press(Qt::Key_Return);
}

std::string Desk::Cursor() const {
    const QModelIndex at = Form().Grid().currentIndex();
    if (!at.isValid()) return "nowhere";
    return Form().Model().Line(at.row()).To_Text() + " " + Form().Model().Column(at.column()).field;
}

std::string Desk::Shown(const LineRef& line, const ColumnRef& column) const {
    return Plain_Text(Index(line, column).data().toString());
}

std::string Desk::Stored(std::string_view item, const LineRef& line, const ColumnRef& column) {
    const Row row = db.Read_Row(Sql("SELECT * FROM ", item, " WHERE LineNum = ", line.line, ";"));
    return row ? Edit_Text(row[column.name]) : "no line";
}

QLineEdit* Desk::Editor() const {
    return Grid().Is_Editing() ? Grid().findChild<QLineEdit*>("cellEditor") : nullptr;
}

std::string Desk::Told() const {
    return Plain_Text(main->statusBar()->currentMessage());
}

QWidget& Desk::Focus() {
    if (QWidget* popup = QApplication::activePopupWidget()) return *popup;
    if (QApplication::activeWindow() == nullptr) {
        QWidget* front = QApplication::activeModalWidget();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (front == nullptr && qobject_cast<FrmMain*>(window) != nullptr) front = window;
        }
        if (front != nullptr) QApplication::setActiveWindow(front);
    }
    if (QWidget* focus = QApplication::focusWidget()) return *focus;
    if (QApplication::activeWindow() == nullptr) throw std::logic_error("no window has the keyboard");
    return *QApplication::activeWindow();
}

void Desk::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&Focus(), key, modifiers);
}

void Desk::Type(std::string_view text) {
    for (const char key : text) QTest::keyClick(&Focus(), key);
}

void Desk::Settle() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void Desk::Expect_Close_All(const std::string& form, Answer answer) {
    Expect("Close form " + form,
           "This process requires all forms to be closed.  Pressing OK will close all open forms.", answer,
           kCloseAllButtons);
}

void Desk::Expect_File_Dialog(const std::string& path) {
    boxes.Expect_Dialog("cdlMain", [path](QWidget& dialog) {
        auto& chooser = dynamic_cast<QFileDialog&>(dialog);
        if (path.empty()) return chooser.reject();
        // Typing unmarks the file that the dialog offers.
        chooser.findChild<QListView*>("listView")->clearSelection();
        chooser.findChild<QLineEdit*>("fileNameEdit")->setText(Qt_Text(path));
        chooser.findChild<QLineEdit*>("fileNameEdit")->setFocus();
        QTest::keyClick(chooser.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
}

}  // namespace tallmar
