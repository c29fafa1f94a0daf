// What the window says of what is stored, how old the figures are, and that a report is read only.
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QStatusTipEvent>
#include <filesystem>

#include "report/open_report.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"

namespace tallmar {

namespace {

namespace fs = std::filesystem;

std::string Text_Of(const QWidget& window, const char* label) {
    return Plain_Text(window.findChild<QLabel*>(label)->text());
}

std::string Age(const Desk& desk) {
    return Text_Of(*desk.main, "lblEntries");
}

bool Says_Older(const WorksheetForm& view) {
    return view.findChild<QLabel*>("lblAge")->isVisible();
}

TEST(FiguresAge, EveryViewSaysThatItIsOlderUntilTheReportIsCalculated) {
    Desk desk(fy2016);
    EXPECT_EQ(Age(desk), "Not calculated since it was opened");
    WorksheetForm& view = desk.View("Sp2");
    EXPECT_FALSE(Says_Older(view));
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    EXPECT_EQ(desk.Told(), "Worksheet A, line 6: 1 cell stored.");
    EXPECT_EQ(Age(desk), "1 entry since it was opened, not calculated");
    EXPECT_TRUE(Says_Older(view));
    EXPECT_EQ(Text_Of(view, "lblAge"),
              "1 entry since it was opened, not calculated: figures here may be older. Recalculate brings them up to "
              "date.");
    EXPECT_TRUE(Says_Older(desk.View("B"))) << "one that is opened now as well";
    desk.Choose("mnuReportCalculate");
    EXPECT_FALSE(Says_Older(view));
    EXPECT_TRUE(desk.Told().starts_with("Calculated ")) << desk.Told();
    EXPECT_TRUE(desk.Told().ends_with(", no messages.")) << desk.Told();
    EXPECT_TRUE(Age(desk).starts_with("Calculated "));
}

TEST(FiguresAge, WhatWasToldIsThereAgainWhenAMenuCloses) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    for (const char* tip : {"a tip of an entry", ""}) {
        QStatusTipEvent over{tip};
        QApplication::sendEvent(desk.main.get(), &over);
    }
    EXPECT_EQ(desk.Told(), "Worksheet A, line 6: 1 cell stored.");
}

TEST(FiguresAge, UndoAndTheButtonOfTheFormAreFollowed) {
    Desk desk(fy2016);
    WorksheetForm& view = desk.View("Sp2");
    desk.Edit("A");
    desk.Push("cmdRecalculate");
    EXPECT_TRUE(desk.Told().starts_with("Calculated ")) << desk.Told();
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    desk.Key(6, 2, "7");
    EXPECT_EQ(Age(desk), "2 entries since the last calculation");
    desk.Choose("mnuEditUndo");
    desk.Choose("mnuEditUndo");
    EXPECT_FALSE(Says_Older(view));
    EXPECT_TRUE(Age(desk).starts_with("Calculated "));
}

TEST(FiguresAge, IsRememberedUntilTheReportIsOpenedAgain) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.Key(6, 1, "1200");
    desk.Expect_Close_All("frmEditA", Answer::Ok);
    desk.Choose("mnuReportClose");
    EXPECT_EQ(desk.Told(), "Closed, compacted.");
    EXPECT_EQ(Age(desk), "");
    desk.Open(desk.Report_Path());
    EXPECT_EQ(desk.Told(), "report.CRF opened.");
    EXPECT_EQ(Age(desk), "1 entry since the last calculation");
    EXPECT_TRUE(Says_Older(desk.View("Sp2")));
}

TEST(FiguresAge, AnotherProgramsChangesMakeThemOlder) {
    Desk desk(fy2016);
    WorksheetForm& view = desk.View("Sp2");
    desk.Choose("mnuReportCalculate");
    {
        Database other = DBEngine::OpenDatabase(desk.Report_Path());
        other.Execute("UPDATE A SET Col_1 = 5 WHERE LineNum = 6;");
        other.Close();
    }
    desk.main->Look_For_Changes();
    EXPECT_EQ(Age(desk), "Changed by another program since the last calculation");
    EXPECT_TRUE(Says_Older(view));
    desk.Choose("mnuReportCalculate");
    EXPECT_FALSE(Says_Older(view));
    desk.main->Look_For_Changes();
    EXPECT_FALSE(Says_Older(view));
}

TEST(ReadOnlyReport, SaysSoAndTakesNoKey) {
    Desk desk(fy2016);
    desk.Choose("mnuReportClose");
    const std::string path = desk.Report_Path();
    fs::permissions(path, fs::perms::owner_read);
    desk.Open(path);
    EXPECT_EQ(Text_Of(*desk.main, "lblCRFName"), path + " (read only)");
    EXPECT_EQ(desk.Told(), "report.CRF is read only and takes no entry. Save As makes a copy that does.");
    EXPECT_EQ(Age(desk), "Read only");
    desk.Edit("A");
    for (const ColumnRef& column : {ColumnRef("LineNum"), ColumnRef("CCName"), ColumnRef(1)}) {
        EXPECT_TRUE(desk.Index(6, column).data(kShadedRole).toBool()) << column.name;
    }
    desk.At(6, 1);
    Desk::Type("5");
    EXPECT_EQ(desk.Editor(), nullptr);
    constexpr const char* kWhy =
        "The report is read only and cannot be calculated.  Report File > Save As makes a copy that can.";
    desk.Expect("Read Only Report", kWhy, Answer::Ok, kExclamation);
    desk.Push("cmdRecalculate");
    desk.Expect("Read Only Report", kWhy, Answer::Ok, kExclamation);
    desk.Choose("mnuReportCalculate");

    desk.Expect_File_Dialog(desk.folder.File("copy.CRF"));
    desk.Choose("mnuReportSaveAs");
    EXPECT_EQ(Text_Of(*desk.main, "lblCRFName"), desk.folder.File("copy.CRF"));
    EXPECT_FALSE(desk.Index(6, 1).data(kShadedRole).toBool());
    desk.Key(6, 1, "5");
    EXPECT_EQ(Desk::Stored("A", 6, 1), "5");
    EXPECT_TRUE(desk.boxes.Done());
    fs::permissions(path, fs::perms::owner_all);
}

TEST(SaveAs, OffersThePresentNameAndStoresTheRowWhenTheNameIsKnown) {
    Desk desk(fy2016);
    desk.Edit("A");
    desk.At(6, 1);
    Desk::Type("1200\t");
    desk.boxes.Expect_Dialog("cdlMain", [](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "report.CRF");
        EXPECT_EQ(Desk::Stored("A", 6, 1), "0") << "nothing is stored while the dialog is open";
        dynamic_cast<QDialog&>(dialog).reject();
    });
    desk.Choose("mnuReportSaveAs");
    EXPECT_EQ(Desk::Stored("A", 6, 1), "0") << "nor by a dialog that was cancelled";
    EXPECT_EQ(desk.Shown(6, 1), "1,200");
    desk.Expect_File_Dialog(desk.folder.File("copy.CRF"));
    desk.Choose("mnuReportSaveAs");
    EXPECT_EQ(desk.Told(), "Saved as copy.CRF.");
    EXPECT_EQ(Desk::Stored("A", 6, 1), "1200");
    EXPECT_EQ(Age(desk), "1 entry since it was opened, not calculated");
    EXPECT_TRUE(desk.boxes.Done());
}

}  // namespace

}  // namespace tallmar
