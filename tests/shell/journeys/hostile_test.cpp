// What a hasty or unlucky person does to the window. Nothing is lost, and a plain word says what was not done.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "report/open_report.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"
#include "support/size_limit.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;

TEST(Hostile, AReadOnlyReportIsShownAndTakesNothing) {
    Desk desk(fy2016);
    desk.Choose("mnuReportClose");
    const std::string path = desk.Report_Path();
    fs::permissions(path, fs::perms::owner_read);
    const auto size = fs::file_size(path);
    desk.Open(path);
    ASSERT_TRUE(Report_Is_Open());
    desk.View("A");
    desk.Push("cmdClose");
    desk.Edit("A");
    desk.At(6, 1);
    Desk::Type("1200");
    EXPECT_EQ(desk.Editor(), nullptr);
    EXPECT_EQ(desk.Told(), "The report is read only and takes no entry. Save As makes a copy that does.");
    Desk::Press(Qt::Key_Return);
    EXPECT_EQ(desk.Shown(6, 1), "0");
    EXPECT_EQ(Desk::Stored("A", 6, 1), "0");
    desk.Expect("Read Only Report",
                "The report is read only and cannot be calculated.  Report File > Save As makes a copy that can.",
                Answer::Ok, kExclamation);
    desk.Push("cmdRecalculate");
    desk.Expect_Close_All("frmEditA", Answer::Ok);
    desk.Choose("mnuReportClose");
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_EQ(fs::file_size(path), size);
    fs::permissions(path, fs::perms::owner_all);
}

TEST(Hostile, AFullDiskKeepsTheEntryUnderEdit) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.At(6, 1);
    Desk::Type("1200\t");
    {
        const SizeLimit full(100);
        desk.boxes.Expect_Box_Starting("Entry Not Stored", "", Answer::Ok, kStop);
        Desk::Press(Qt::Key_Return);
        EXPECT_TRUE(desk.boxes.Done());
        EXPECT_EQ(desk.Shown(6, 1), "1,200");
        desk.boxes.Expect_Box_Starting("Entry Not Stored", "", Answer::Ok, kStop);
        desk.Push("cmdClose");
        EXPECT_TRUE(desk.boxes.Done());
        EXPECT_EQ(desk.Open_Forms(), 1U) << "the form stays open";
    }
    EXPECT_EQ(Desk::Stored("A", 6, 1), "0");
    desk.Push("cmdClose");
    EXPECT_EQ(desk.Open_Forms(), 0U);
    EXPECT_EQ(Desk::Stored("A", 6, 1), "1200");
}

TEST(Hostile, AFullDiskLeavesTheReportUncalculated) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    {
        const SizeLimit full(100);
        desk.boxes.Expect_Box_Starting("Error: Calculation Failed", "", Answer::Ok, kStop);
        desk.Choose("mnuReportCalculate");
    }
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_EQ(Desk::Stored("A", 6, 6), "0");
    desk.Choose("mnuReportCalculate");
    EXPECT_EQ(Desk::Stored("A", 6, 6), "1200");
}

// Clicks and keys during a calculation start nothing, then and later.
TEST(Hostile, InputDuringACalculationIsThrownAway) {
    Desk desk;
    Make_Sample(Samples()[2], desk.Report_Path());
    desk.Open(desk.Report_Path());
    desk.Edit("A");
    desk.At(6, 1);
    const std::string before = Desk::Stored("A", 6, 1);
    int tried = 0;
    QTimer impatience;
    QObject::connect(&impatience, &QTimer::timeout, [&] {
        if (!desk.platform.Guard().Is_On()) return;
        ++tried;
        QTest::mouseDClick(desk.main->menuBar(), Qt::LeftButton, {}, QPoint(20, 8));
        QTest::mouseClick(&desk.Button("cmdClose"), Qt::LeftButton);
        Desk::Type("99");
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F9, Qt::Key_Escape}) Desk::Press(key);
        Desk::Press(Qt::Key_W, Qt::ControlModifier);
        desk.main->close();
    });
    impatience.start(0);
    desk.Choose("mnuReportCalculate");
    impatience.stop();
    Desk::Settle();
    EXPECT_GT(tried, 3);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(desk.Open_Forms(), 1U);
    EXPECT_EQ(desk.Editor(), nullptr);
    EXPECT_TRUE(desk.main->isVisible());
    EXPECT_EQ(Desk::Stored("A", 6, 1), before);
    EXPECT_EQ(desk.Cursor(), "6 Col_1");
}

TEST(Hostile, UndoWorksAcrossACalculation) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    desk.Key(6, 1, "1300");
    desk.Push("cmdRecalculate");
    ASSERT_EQ(Desk::Stored("A", 6, 6), "1300");
    desk.Edit("A");
    Desk::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Desk::Stored("A", 6, 1), "1200");
    Desk::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Desk::Stored("A", 6, 1), "0");
    Desk::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.Told(), "There is nothing to take back.");
}

TEST(Hostile, TheRowUnderEditCanBeDeletedAndComesBack) {
    Desk desk(fy2016);
    desk.Edit("A6pC");
    desk.Push("cmdAdd");
    desk.Push("cmdAdd");
    const int rows = desk.Form().Model().rowCount();
    desk.At(2, 2);
    Desk::Type("Harlan Supply");
    ASSERT_NE(desk.Editor(), nullptr);
    desk.Push("cmdDelete");
    EXPECT_EQ(desk.Form().Model().rowCount(), rows - 1);
    EXPECT_EQ(desk.Editor(), nullptr);
    Desk::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.Form().Model().rowCount(), rows);
    desk.Key(2, 2, "Harlan Linen");
    EXPECT_EQ(Desk::Stored("A6pC", 2, 2), "Harlan Linen");
}

TEST(Hostile, TenThousandRowsArePasted) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.At(6, 1);
    QString rows;
    for (int i = 1; i <= 10000; ++i) rows += QString::number(i) + "\n";
    QApplication::clipboard()->setText(rows);
    desk.boxes.Expect_Dialog("frmBatchMsgs", [](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); });
    Desk::Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_EQ(Desk::Stored("A", 6, 1), "1");
    EXPECT_EQ(Desk::Stored("A", 7, 1), "2");
    EXPECT_FALSE(desk.platform.Guard().Is_On());
    Desk::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Desk::Stored("A", 6, 1), "0") << "a paste is one step";
    EXPECT_EQ(Desk::Stored("A", 7, 1), "0");
}

TEST(Hostile, RowsAreAddedForAPasteUpToWhatTheFormTakes) {
    Desk desk(fy2016);
    desk.Edit("D1");
    desk.At(3.01, 2);
    QString rows;
    for (int i = 1; i <= 10000; ++i) rows += QString::number(i) + "\n";
    QApplication::clipboard()->setText(rows);
    desk.boxes.Expect_Dialog("frmBatchMsgs", [](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); });
    Desk::Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_EQ(Desk::Stored("D1", 3.01, 2), "1");
    Desk::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Desk::Stored("D1", 3.01, 2), "0");
}

TEST(Hostile, ATinyWindowStillTakesEntries) {
    Desk desk(fy2016);
    desk.Edit("B1");
    desk.main->resize(1, 1);
    desk.Window().resize(1, 1);
    Desk::Settle();
    desk.main->Forms().Set_Zoom(300);
    Desk::Settle();
    desk.Grid().setCurrentIndex(desk.Index(6, "CC_100"));
    Desk::Type("40");
    Desk::Press(Qt::Key_Return);
    EXPECT_EQ(Desk::Stored("B1", 6, "CC_100"), "40");
    desk.main->Forms().Set_Zoom(50);
    desk.main->resize(1600, 1000);
    Desk::Settle();
    EXPECT_TRUE(desk.At(9, "CC_100"));
}

TEST(Hostile, TabsMayBeSwitchedWhileACellIsTyped) {
    Desk desk(fy2016);
    desk.View("A5");
    desk.Edit("A");
    desk.At(6, 1);
    Desk::Type("5");
    for (int i = 0; i < 3; ++i) {
        desk.Choose("mnuWindowTabbed");
        ASSERT_NE(desk.Editor(), nullptr);
        EXPECT_EQ(desk.Editor()->text(), "5");
    }
    desk.View("A5");
    desk.Edit("A");
    Desk::Settle();
    if (desk.Editor() != nullptr) desk.Editor()->setFocus();
    Desk::Press(Qt::Key_Return);
    EXPECT_EQ(Desk::Stored("A", 6, 1), "5");
    EXPECT_EQ(desk.Open_Forms(), 2U);
}

// A code makes a worksheet of C Part II, with its menu entry; with the code the worksheet goes, and its forms.
TEST(Hostile, AFormWhoseWorksheetGoesGoesToo) {
    Desk desk;
    Make_Sample(Samples()[1], desk.Report_Path());
    desk.Open(desk.Report_Path());
    ASSERT_NE(desk.List_Entry(FormMode::Edit, "Cp2m1400"), nullptr);
    desk.View("Cp2m1400");
    desk.Edit("Cp2m1400");
    desk.Edit("S3p3");
    ASSERT_EQ(desk.Open_Forms(), 3U);
    desk.At(29, 1);
    desk.Expect("Remove Code",
                "The visits and limits of code 1400 on C Part II will be removed.  Do you wish to continue?",
                Answer::Yes, kYesNo + kQuestion + kDefaultButton2);
    Desk::Press(Qt::Key_Backspace);
    Desk::Press(Qt::Key_Return);
    Desk::Settle();
    EXPECT_EQ(desk.List_Entry(FormMode::Edit, "Cp2m1400"), nullptr);
    EXPECT_EQ(desk.List_Entry(FormMode::View, "Cp2m1400"), nullptr);
    EXPECT_EQ(desk.Open_Forms(), 1U);
    Desk::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(desk.List_Entry(FormMode::Edit, "Cp2m1400"), nullptr) << "the undo brings it back";
    desk.Edit("Cp2m1400");
    EXPECT_EQ(desk.Shown(1, 5), "2,944") << "with what was keyed in it";
}

}  // namespace

}  // namespace tallmar
