// A person's desk: the whole program in its main window, with settings, data and reports in a folder of its own, worked
// by keys, clicks and menu entries.
//
//     Desk desk(fy2016);
//     desk.Edit("A");
//     desk.Key(6, 1, "1200");
//     desk.Push("cmdRecalculate");
//     EXPECT_EQ(desk.Shown(6, 1), "1,200");
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "screens/edit/edit_form.h"
#include "shell/desktop_platform.h"
#include "shell/frm_main.h"
#include "support/desktop/box_driver.h"
#include "support/report_fixture.h"
#include "support/temp_folder.h"

class QLineEdit;
class QMdiSubWindow;
class QPushButton;

namespace tallmar {

class Desk {
  public:
    // The window as the program starts it, without a report.
    Desk();
    // A new report is open, at Report_Path().
    explicit Desk(const FiscalYear& year);
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // ---- Reports
    std::string Report_Path() const { return folder.File("report.CRF"); }
    // Makes a report without the dialog, and leaves it open.
    void Make(const std::string& path, const FiscalYear& year);
    // Opens a file as a click in the list of recent files does.
    void Open(const std::string& path);

    // ---- Menus
    QAction& Entry(std::string_view name) const;
    // The entry is clicked; one that is off fails the test.
    void Choose(std::string_view name) const;
    // The entry of an item in a list menu; null where there is none.
    QAction* List_Entry(FormMode mode, const std::string& item) const;

    // ---- Forms. The one opened last is the one at work.
    WorksheetForm& Edit(std::string_view item) { return Open_Form(FormMode::Edit, item); }
    WorksheetForm& View(std::string_view item) { return Open_Form(FormMode::View, item); }
    WorksheetForm* Find(FormMode mode, std::string_view item) const;
    // To the form in front, where a button or a shortcut brought one up.
    WorksheetForm& Take_Front();
    WorksheetForm& Form() const;
    EditGrid& Grid() const;
    QMdiSubWindow& Window() const;
    std::size_t Open_Forms() const { return main->Forms().Forms().size(); }
    // A button of the form is clicked.
    void Push(const char* button) const;
    QPushButton& Button(const char* name) const;

    // ---- Cells
    QModelIndex Index(const LineRef& line, const ColumnRef& column) const;
    // The cursor goes there as by a click; false where a refusal holds it.
    bool At(const LineRef& line, const ColumnRef& column) const;
    // Types over what the cell of the cursor holds. A name is opened by F2 first.
    void Type_Over(std::string_view text) const;
    // Goes there, types and presses Enter.
    void Key(const LineRef& line, const ColumnRef& column, std::string_view text) const;
    // "5.01 Col_3": where the cursor is.
    std::string Cursor() const;
    std::string Shown(const LineRef& line, const ColumnRef& column) const;
    // What the table holds, as text.
    static std::string Stored(std::string_view item, const LineRef& line, const ColumnRef& column);
    QLineEdit* Editor() const;
    // What the status line says.
    std::string Told() const;

    // ---- Keys, to an open menu or to what has the focus. The window system brings the window up again when a dialog
    // has gone; a display in memory does not.
    static QWidget& Focus();
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    static void Type(std::string_view text);
    // What stands in the queue of events comes about.
    static void Settle();

    // ---- Boxes
    void Expect(std::string_view title, std::string_view text, Answer answer = Answer::Ok,
                int buttons = BoxDriver::kAnyButtons) {
        boxes.Expect_Box(title, text, answer, buttons);
    }
    // "This process requires all forms to be closed."
    void Expect_Close_All(const std::string& form, Answer answer);
    // The file dialog, answered with a path; empty: it is cancelled.
    void Expect_File_Dialog(const std::string& path);

    TempFolder folder;
    std::vector<std::string> documents;  // that were handed to the desktop
    DesktopPlatform platform;
    std::unique_ptr<FrmMain> main;
    BoxDriver boxes;

  private:
    WorksheetForm& Open_Form(FormMode mode, std::string_view item);

    QPointer<WorksheetForm> form_;
};

// The title and the text of the question before all forms are closed.
inline constexpr int kCloseAllButtons = kOkCancel + kQuestion + kDefaultButton2;

}  // namespace tallmar
