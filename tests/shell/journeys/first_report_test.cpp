// A person's first report, from an empty window to the report opened again.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "db/database.h"
#include "report/open_report.h"
#include "report/store.h"
#include "screens/edit/choice_list.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"

namespace tallmar {

namespace {

void Fill_New_Report(Desk& desk, const std::string& path) {
    desk.boxes.Expect_Dialog("frmCreateNewCRF", [&desk, path](QWidget& dialog) {
        QApplication::setActiveWindow(&dialog);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtProviderNum");
        for (const char* entry : {"147100", "10/1/15", "9/30/16", "Prairie Hearth Home Health"}) {
            Desk::Type(entry);
            Desk::Press(Qt::Key_Tab);
        }
        desk.Expect_File_Dialog(path);
        Desk::Press(Qt::Key_Return);
    });
    desk.Choose("mnuReportNew");
    ASSERT_TRUE(desk.boxes.Done());
}

std::vector<std::string> Heads(const Desk& desk) {
    std::vector<std::string> heads;
    for (int column = 0; column < desk.Form().Model().columnCount(); ++column) {
        heads.push_back(Plain_Text(desk.Form().Model().Whole_Head(column)));
    }
    return heads;
}

TEST(FirstReport, IsMadeKeyedCalculatedSavedAndOpenedAgain) {
    Desk desk;
    const std::string first = desk.folder.File("First.CRF"), second = desk.folder.File("Second.CRF");
    Fill_New_Report(desk, first);
    ASSERT_TRUE(Report_Is_Open());
    EXPECT_EQ(openReport.CRFPath, first);

    // Worksheet A: Enter goes down, Tab to the right.
    desk.Edit("A");
    desk.At(6, 1);
    Desk::Type("1200");
    Desk::Press(Qt::Key_Return);
    EXPECT_EQ(desk.Cursor(), "7 Col_1");
    EXPECT_EQ(desk.Told(), "Worksheet A, line 6: 1 cell stored.");
    Desk::Type("300");
    Desk::Press(Qt::Key_Tab);
    Desk::Type("(45)");
    Desk::Press(Qt::Key_Tab);
    EXPECT_EQ(desk.Cursor(), "7 Col_3");
    EXPECT_EQ(Desk::Stored("A", 7, 1), "0") << "the row is not left yet";
    desk.Expect("Invalid Non-Numeric Entry",
                "You're attempting to enter invalid data ['lots'].  The cell you're attempting to input or modify only "
                "accepts numeric data.  Your entry or modification is being discarded.  Select OK to continue.",
                Answer::Ok, kStop);
    Desk::Type("lots");
    Desk::Press(Qt::Key_Return);
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_EQ(desk.Cursor(), "7 Col_3");

    // The calculation stores the row first, and brings the view up with the totals.
    desk.Push("cmdRecalculate");
    EXPECT_EQ(Desk::Stored("A", 7, 1), "300");
    EXPECT_EQ(desk.Take_Front().Caption(), "View Worksheet A");
    EXPECT_EQ(desk.Shown(6, 6), "1,200");
    EXPECT_EQ(desk.Shown(7, 6), "255");
    EXPECT_EQ(desk.Shown(29, 6), "1,455");

    // A change makes the view stale: it goes.
    desk.Edit("A");
    desk.Key(6, 2, "50");
    Desk::Settle();
    EXPECT_EQ(desk.Find(FormMode::View, "A"), nullptr);

    // S-2: heads by row, a list of answers, and the option that closes the other forms first.
    desk.Edit("S2");
    desk.At(2, 1);
    EXPECT_EQ(Heads(desk)[1], "Component");
    EXPECT_EQ(Heads(desk)[4], "3 Date Certified");
    desk.At(23, 1);
    EXPECT_EQ(Heads(desk)[2], "1 Part A");
    desk.At(14, 1);
    EXPECT_EQ(Heads(desk)[2], "1 Answer");
    ASSERT_NE(desk.Grid().Choices(), nullptr);
    EXPECT_EQ(desk.Grid().Choices()->objectName(), "ButtonListYN");
    Desk::Press(Qt::Key_Up);  // from No, which stands
    Desk::Press(Qt::Key_Return);
    EXPECT_EQ(desk.Shown(14, 1), "Yes");
    desk.At(26, 1);
    ASSERT_NE(desk.Grid().Choices(), nullptr);
    desk.Expect_Close_All("frmEditA", Answer::Cancel);
    desk.Grid().Choices()->findChild<QAction*>("mnuOption1")->trigger();
    EXPECT_EQ(Desk::Stored("S2", 26, 1), "");
    EXPECT_EQ(Desk::Stored("CostCenters", 5.01, "LineNum"), "no line");
    EXPECT_EQ(desk.Open_Forms(), 2U);
    desk.Expect_Close_All("frmEditA", Answer::Ok);
    Desk::Type("1");
    Desk::Press(Qt::Key_Return);
    Desk::Settle();
    EXPECT_EQ(desk.Open_Forms(), 1U) << "S-2 itself stays";
    EXPECT_EQ(Desk::Stored("S2", 26, 1), "1");
    EXPECT_EQ(Desk::Stored("CostCenters", 5.01, "LineNum"), "5.01");
    EXPECT_EQ(Desk::Stored("CostCenters", 5, "LineNum"), "no line");
    EXPECT_EQ(openReport.AGOption, 1);

    // Saved under another name, closed, and opened from the list of recent files.
    desk.Expect_File_Dialog(second);
    desk.Choose("mnuReportSaveAs");
    EXPECT_EQ(openReport.CRFPath, second);
    EXPECT_EQ(desk.main->windowTitle(), "The Brennwick Systems, Inc. Tallmar 1728 (version 1.0) -- Second.CRF");
    desk.Expect_Close_All("frmEditS2", Answer::Ok);
    desk.Choose("mnuReportClose");
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(desk.boxes.Done());

    QMenu& recent = desk.main->Menus().Menu("mnuReportRecent");
    emit recent.aboutToShow();
    ASSERT_EQ(recent.actions().size(), 2);
    EXPECT_EQ(recent.actions()[0]->text(), "&1 " + Qt_Text(second));
    recent.actions()[0]->trigger();
    Desk::Settle();
    ASSERT_EQ(openReport.CRFPath, second);
    desk.Edit("A");
    EXPECT_EQ(desk.Shown(6, 1), "1,200");
    EXPECT_EQ(desk.Shown(6, 2), "50");
    EXPECT_EQ(desk.Shown(7, 2), "(45)");
    EXPECT_EQ(desk.Shown(7, 3), "0");
    EXPECT_EQ(desk.Shown(5.01, 1), "0");
    desk.Edit("S2");
    EXPECT_EQ(desk.Shown(14, 1), "Yes");
    desk.Push("cmdClose");
    desk.Expect_Close_All("frmEditA", Answer::Ok);
    desk.Choose("mnuReportClose");
    EXPECT_NE(Run_Tallmar({"dump", second}).find("Prairie Hearth Home Health"), std::string::npos);
}

// The same without the mouse, by access keys and shortcuts.
TEST(FirstReport, CanBeMadeByTheKeyboardAlone) {
    Desk desk;
    const std::string path = desk.folder.File("Keys.CRF");
    const auto key = [](Qt::Key which, Qt::KeyboardModifiers modifiers = {}) {
        Desk::Press(which, modifiers);
        Desk::Settle();
    };
    desk.boxes.Expect_Dialog("frmCreateNewCRF", [&](QWidget& dialog) {
        QApplication::setActiveWindow(&dialog);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        for (const char* entry : {"147100", "10/1/15", "", "Prairie Hearth Home Health"}) {
            Desk::Type(entry);
            Desk::Press(Qt::Key_Tab);
        }
        desk.Expect_File_Dialog(path);
        Desk::Press(Qt::Key_Return);
    });
    key(Qt::Key_R, Qt::AltModifier);  // Report File
    key(Qt::Key_N);                   // New ...
    ASSERT_TRUE(desk.boxes.Done());
    ASSERT_EQ(openReport.CRFPath, path);

    // F10, then by arrows to Edit, Open ..., the first worksheet.
    key(Qt::Key_F10);
    key(Qt::Key_Right);
    if (QApplication::activePopupWidget() == nullptr) key(Qt::Key_Down);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget()->objectName().toStdString(), "mnuEditMenu");
    key(Qt::Key_Right);
    key(Qt::Key_Return);
    ASSERT_EQ(desk.Open_Forms(), 1U);
    EXPECT_EQ(desk.Take_Front().Caption(), "Edit Worksheet A");
    key(Qt::Key_Home, Qt::ControlModifier);
    while (desk.Cursor() != "6 Col_1") {
        const std::string before = desk.Cursor();
        key(Qt::Key_Tab);
        ASSERT_NE(desk.Cursor(), before);
    }
    Desk::Type("77");
    key(Qt::Key_Return);
    EXPECT_EQ(Desk::Stored("A", 6, 1), "77");
    key(Qt::Key_F9);
    EXPECT_EQ(Desk::Stored("A", 6, 6), "77");
    key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(desk.Open_Forms(), 0U);
    key(Qt::Key_R, Qt::AltModifier);
    key(Qt::Key_C);
    EXPECT_FALSE(Report_Is_Open());
    key(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(desk.main->isVisible());
}

}  // namespace

}  // namespace tallmar
