// The main window: what it shows by the state of the report, recent files, drops, documents and its end.
#include "shell/frm_main.h"

#include <gmock/gmock.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QTableWidget>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "shell/frm_help_keys.h"
#include "shell/menu_tree.h"
#include "shell/recent_files.h"
#include "shell/shell_test.h"
#include "shell/window_places.h"

namespace tallmar {
namespace {

class FrmMainTest : public ShellTest {
  protected:
    template <class Control>
    Control& Find(const char* name) {
        auto* control = main->findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }
    void Drop(const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(main.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(main.get(), &drop);
        QCoreApplication::processEvents();
    }
    static QUrl File(const std::string& path) { return QUrl::fromLocalFile(Qt_Text(path)); }
    BoxDriver boxes;
};

TEST_F(FrmMainTest, WelcomeStandsWhileNoReportIsOpen) {
    EXPECT_TRUE(Find<QWidget>("fraWelcome").isVisible());
    EXPECT_EQ(Find<QGroupBox>("fraWelcome").title(), "Welcome to Brennwick System's Tallmar 1728 Program");
    EXPECT_EQ(Find<QLabel>("lblNew").text(), "To create a new Cost Report File, select ...");
    EXPECT_EQ(Find<QLabel>("lblOpen").text(), "To open an existing Cost Report File, select ...");
    EXPECT_EQ(Find<QLabel>("lblExit").text(), "To close and leave the Tallmar program, select ...");
    for (const char* control : {"lblHelp", "lblCRFName", "picLogo", "txtCalcMsg"}) {
        EXPECT_FALSE(Find<QWidget>(control).isVisible()) << control;
    }
}

TEST_F(FrmMainTest, OpenReportShowsItsNameAndTakesTheWelcomeAway) {
    const std::string path = Make_Report(fy2016);
    EXPECT_FALSE(Find<QWidget>("fraWelcome").isVisible());
    EXPECT_TRUE(Find<QLabel>("lblCRFName").isVisible());
    EXPECT_EQ(Find<QLabel>("lblCRFName").text(), Qt_Text(path));
    EXPECT_TRUE(Find<QLabel>("picLogo").isVisible());
    EXPECT_EQ(main->windowTitle(), "The Brennwick Systems, Inc. Tallmar 1728 (version 1.0) -- report.CRF");
}

TEST_F(FrmMainTest, CaptionFollowsSaveAsAndNamesTheMakerOfTheTitleFile) {
    std::filesystem::create_directory(folder.File("program"));
    std::ofstream(folder.File("program/PrtTitle.txt")) << "Another House\n";
    Make_Report(fy2016);
    ASSERT_TRUE(Report_Save_As(folder.File("copy.CRF")));
    EXPECT_EQ(main->windowTitle(), "Another House Tallmar 1728 (version 1.0) -- copy.CRF");
    EXPECT_EQ(Find<QLabel>("lblCRFName").text(), Qt_Text(folder.File("copy.CRF")));
}

TEST_F(FrmMainTest, WelcomeGoesWhileAReportIsChosenAndComesBackWithoutOne) {
    for (const bool isOpen : {false, true}) {
        if (isOpen) Make_Report(fy2016);
        The_Platform().Notify(ReportEvent::Opening);
        EXPECT_FALSE(Find<QWidget>("fraWelcome").isVisible());
        The_Platform().Notify(ReportEvent::NotChosen);
        EXPECT_EQ(Find<QWidget>("fraWelcome").isVisible(), !isOpen);
        EXPECT_EQ(Find<QLabel>("lblCRFName").isVisible(), isOpen);
    }
}

TEST_F(FrmMainTest, CloseLeavesTheWindowAsItWas) {
    Make_Report(fy2016);
    View("A");
    boxes.Expect_Box_Starting("Close form frmViewA", "This process", Answer::Ok);
    Entry("mnuReportClose").trigger();
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_TRUE(main->isEnabled());
    EXPECT_TRUE(Find<QWidget>("fraWelcome").isVisible());
    EXPECT_EQ(main->focusWidget(), &Find<QPushButton>("cmdOpen")) << "the keys have somewhere to go on";
    EXPECT_FALSE(Find<QWidget>("lblCRFName").isVisible());
    EXPECT_EQ(main->windowTitle(), "The Brennwick Systems, Inc. Tallmar 1728 (version 1.0)");
    EXPECT_FALSE(Entry("mnuReportClose").isEnabled());
}

TEST_F(FrmMainTest, CancelledCloseKeepsReportAndForms) {
    Make_Report(fy2016);
    QApplication::setActiveWindow(main.get());
    View("A")->Grid().setFocus();
    boxes.Expect_Box_Starting("Close form frmViewA", "This process", Answer::Cancel);
    Entry("mnuReportClose").trigger();
    EXPECT_EQ(main->focusWidget(), &View("A")->Grid()) << "the keys go on where they were";
    EXPECT_TRUE(Report_Is_Open());
    EXPECT_TRUE(main->isEnabled());
    EXPECT_EQ(Open_Forms(), 1U);
}

TEST_F(FrmMainTest, HelpScrollsIntoViewWhenAReportIsOpened) {
    const QString text = Find<QLabel>("lblHelp").text();
    Make_Report(fy2016);
    QTRY_VERIFY_WITH_TIMEOUT(Find<QLabel>("lblHelp").isVisible(), 2000);
    EXPECT_TRUE(Find<QLabel>("lblHelp").text().startsWith('\n'));
    QTRY_COMPARE_WITH_TIMEOUT(Find<QLabel>("lblHelp").text(), text, 5000);
}

TEST_F(FrmMainTest, HelpStopsAtCloseAndScrollsAnewAtOpen) {
    const QString text = Find<QLabel>("lblHelp").text();
    const std::string path = Make_Report(fy2016);
    auto* tmrMain = main->findChild<QTimer*>("tmrMain");
    ASSERT_NE(tmrMain, nullptr);
    EXPECT_EQ(tmrMain->interval(), 100);
    tmrMain->setInterval(1);
    QTRY_VERIFY_WITH_TIMEOUT(!tmrMain->isActive(), 2000);
    EXPECT_EQ(Find<QLabel>("lblHelp").text(), text);
    Entry("mnuReportClose").trigger();
    EXPECT_FALSE(Find<QLabel>("lblHelp").isVisible());
    ASSERT_TRUE(Report_Open(path));
    EXPECT_TRUE(tmrMain->isActive());
    QTRY_VERIFY_WITH_TIMEOUT(Find<QLabel>("lblHelp").isVisible(), 2000);
    EXPECT_TRUE(Find<QLabel>("lblHelp").text().startsWith('\n'));
    Entry("mnuReportClose").trigger();
    const QString stopped = Find<QLabel>("lblHelp").text();
    QTest::qWait(250);
    EXPECT_EQ(Find<QLabel>("lblHelp").text(), stopped) << "the tag says so";
}

TEST_F(FrmMainTest, PrintQualityIsSwapped) {
    Make_Report(fy2016);
    QAction& quality = Entry("mnuReportUtilitiesHQ");
    EXPECT_EQ(quality.text(), "Turn High Quality Printing Off");
    quality.trigger();
    EXPECT_EQ(quality.text(), "Turn High Quality Printing On");
    EXPECT_EQ(The_Platform().Get_Setting("Tallmar", "Printing", "PrintQuality", "True"), "False");
    quality.trigger();
    EXPECT_EQ(quality.text(), "Turn High Quality Printing Off");
    EXPECT_EQ(The_Platform().Get_Setting("Tallmar", "Printing", "PrintQuality", ""), "True");
}

TEST_F(FrmMainTest, WhatIsNotBuiltStaysOff) {
    Make_Report(fy2016);
    openReport.ecrMayBeBuilt = true;
    emit main->Menus().Menu("mnuReport").aboutToShow();
    EXPECT_FALSE(Entry("mnuReportSubmit").isEnabled());
    EXPECT_FALSE(Entry("mnuReportPrint").isEnabled());
    EXPECT_FALSE(Entry("mnuEditOpenCCs").isEnabled());
    EXPECT_EQ(Entry("mnuReportPrint").toolTip(), "Not available yet");
    EXPECT_EQ(Entry("mnuReportImport").isEnabled(), Entry("mnuReportImportASCII").isEnabled());
}

TEST_F(FrmMainTest, EntryThatIsOffSaysWhyUntilItIsOn) {
    EXPECT_EQ(Entry("mnuReportClose").toolTip(), "No report is open");
    EXPECT_EQ(Entry("mnuWindowTile").toolTip(), "No form that this works on is open");
    Make_Report(fy2016);
    EXPECT_NE(Entry("mnuReportClose").toolTip(), "No report is open");
    EXPECT_EQ(Entry("mnuEditOpenA1").toolTip(), "This report has no such worksheet");
    View("A");
    EXPECT_NE(Entry("mnuWindowTile").toolTip(), "No form that this works on is open");
    EXPECT_EQ(Entry("mnuEditPaste").toolTip(), "No form that this works on is open") << "a view takes no entries";
}

TEST_F(FrmMainTest, ListEntriesComeAndGoWithTheRegistry) {
    Make_Report(fy2000);
    QMenu& list = main->Menus().Menu("mnuViewOpenCp2");
    EXPECT_TRUE(list.isEmpty());
    db.Execute("INSERT INTO Worksheets (Item, Calc_Lvl, ItemName) VALUES ('Cp2m1600', 7, 'C  Part-2  MSA-1600');");
    db.Execute("INSERT INTO Worksheets (Item, Calc_Lvl, ItemName) VALUES ('Cp2m1620', 7, 'C  Part-2  MSA-1620');");
    The_Platform().Menus_Stale();
    ASSERT_EQ(list.actions().size(), 2);
    EXPECT_EQ(list.actions()[1]->text(), "C  Part-2  MSA-1620 (Cp2m1620)");
    EXPECT_TRUE(list.menuAction()->isEnabled());
    boxes.Expect_Box("Tallmar 1728", "Unknown worksheet requested (Cp2m1620) for view");
    list.actions()[1]->trigger();
    db.Execute("DELETE * FROM Worksheets WHERE Item = 'Cp2m1620';");
    The_Platform().Menus_Stale();
    EXPECT_EQ(list.actions().size(), 1);
}

TEST_F(FrmMainTest, DocumentsOpenFromTheProgramsFolder) {
    Make_Report(fy2016);
    const std::string program = The_Platform().Program_Folder();
    QDir().mkpath(Qt_Text(program));
    QFile document(Qt_Text(program) + "/P1339.DOCX");
    ASSERT_TRUE(document.open(QIODevice::WriteOnly));
    document.close();
    Entry("mnu1").trigger();
    EXPECT_THAT(opened, testing::ElementsAre(program + "/P1339.DOCX"));
    boxes.Expect_Box("Error: Document Not Found", "The document " + program + "/BAD DEBT.DOCX is not there.");
    Entry("mnu2").trigger();
    boxes.Expect_Dialog("frmHelpKeys", [&](QWidget& keys) {
        EXPECT_EQ(
            keys.findChild<QLabel*>("lblNote")->text(),
            Qt_Text("The instructions of the form, " + program + "/R17pr232.pdf, are not there.  These are the keys:"));
        keys.close();
    });
    Entry("mnuHelpInstructions").trigger();
    QFile instructions(Qt_Text(program) + "/R17pr232.pdf");
    ASSERT_TRUE(instructions.open(QIODevice::WriteOnly));
    instructions.close();
    Entry("mnuHelpInstructions").trigger();
    EXPECT_EQ(opened.back(), program + "/R17pr232.pdf");
    documentsOpen = false;
    boxes.Expect_Box("Error: Document Not Opened",
                     "There is no program that opens the document " + program + "/P1339.DOCX.");
    Entry("mnu1").trigger();
}

TEST_F(FrmMainTest, RecentFilesAreNewestFirst) {
    const std::string first = Make_Report(fy2016, "first.CRF");
    const std::string second = Make_Report(fy2016, "second.CRF");
    EXPECT_THAT(Recent_Files(), testing::ElementsAre(second, first));
    QMenu& menu = main->Menus().Menu("mnuReportRecent");
    emit menu.aboutToShow();
    ASSERT_EQ(menu.actions().size(), 2);
    menu.actions()[1]->trigger();
    EXPECT_EQ(openReport.CRFPath, first);
    EXPECT_THAT(Recent_Files(), testing::ElementsAre(first, second));
}

TEST_F(FrmMainTest, RecentFileThatIsGoneIsToldAndTakenOff) {
    const std::string gone = folder.File("gone.CRF");
    Add_Recent_File(gone);
    boxes.Expect_Box("Error: File Not Found",
                     "The file " + gone + " is not there any more.  It is taken off the list.");
    Open_Recent(*main, gone);
    EXPECT_TRUE(Recent_Files().empty());
    EXPECT_FALSE(Entry("mnuReportRecent").isEnabled());
}

TEST_F(FrmMainTest, CopyOfABackupIsOpenedFromTheMenu) {
    const std::string backup = folder.File("data") + "/backups/Agency-0123456789abcdef/2016-11-15 103000.CRF";
    const std::string report = Make_Report(fy2016);
    Entry("mnuReportClose").trigger();
    boxes.Expect_Box("Tallmar 1728",
                     "No backup is kept yet: a report is kept as it was opened, before its first change.");
    Entry("mnuReportBackup").trigger();
    QDir().mkpath(QFileInfo(Qt_Text(backup)).path());
    ASSERT_TRUE(QFile::copy(Qt_Text(report), Qt_Text(backup)));
    boxes.Expect_Dialog("frmBackups", [](QWidget& dialog) {
        auto* list = dialog.findChild<QTableWidget*>("grdBackups");
        ASSERT_EQ(list->rowCount(), 1);
        EXPECT_EQ(list->item(0, 0)->text(), "11/15/2016 10:30");
        EXPECT_EQ(list->item(0, 1)->text(), "Agency.CRF");
        dialog.findChild<QPushButton*>("cmdOpen")->click();
    });
    boxes.Expect_Dialog("cdlMain", [this](QWidget& widget) {
        auto* name = widget.findChild<QLineEdit*>();
        EXPECT_EQ(name->text(), "Agency (backup).CRF");
        name->setText(Qt_Text(folder.File("copy.CRF")));
        static_cast<QDialog&>(widget).accept();
    });
    Entry("mnuReportBackup").trigger();
    EXPECT_EQ(openReport.CRFPath, folder.File("copy.CRF"));
}

TEST_F(FrmMainTest, DroppedReportIsOpened) {
    const std::string path = Make_Report(fy2016);
    Entry("mnuReportClose").trigger();
    Drop({File(path)});
    EXPECT_EQ(openReport.CRFPath, path);
}

TEST_F(FrmMainTest, OtherDropsAreRefused) {
    const std::string path = Make_Report(fy2016);
    constexpr const char* kText = "Drop one Cost Report File (*.CRF) at a time on the window to open it.";
    boxes.Expect_Box("Error: Not A Cost Report File", kText);
    Drop({File(path), File(path)});
    boxes.Expect_Box("Error: Not A Cost Report File", kText);
    Drop({File(folder.File("notes.txt"))});
    boxes.Expect_Box("Error: Not A Cost Report File", kText);
    Drop({QUrl("https://example.org/report.CRF")});
}

TEST_F(FrmMainTest, FirstSizeLeavesTheFootOnTheScreen) {
    const QSize size = FrmMain(platform.Guard()).size();
    const QSize screen = main->screen()->availableSize();
    EXPECT_LE(size.width(), screen.width());
    EXPECT_LT(size.height(), screen.height() - main->style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

TEST_F(FrmMainTest, FirstSizeUsesFourFifthsOfTheScreen) {
    const QSize size = FrmMain(platform.Guard()).size();
    const QSize screen = main->screen()->availableSize();
    const int title = main->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    EXPECT_GE(size.width(), std::min(screen.width() * 8 / 10, screen.width() - title));
    EXPECT_GE(size.height(), std::min(screen.height() * 8 / 10, screen.height() - 2 * title));
}

TEST_F(FrmMainTest, ExitClosesFormsAndReleasesTheReport) {
    Make_Report(fy2016);
    View("A");
    Entry("mnuReportExit").trigger();
    EXPECT_FALSE(main->isVisible());
    EXPECT_FALSE(Report_Is_Open());
    EXPECT_EQ(Open_Forms(), 0U);
    EXPECT_FALSE(Remembered_Geometry().isEmpty());
}

TEST_F(FrmMainTest, KeysReachMenusWithoutAnAccessKey) {
    Make_Report(fy2016);
    QApplication::setActiveWindow(main.get());
    QTest::keyClick(main.get(), Qt::Key_F10);
    EXPECT_EQ(main->menuBar()->activeAction(), &Entry("mnuReport"));
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
    EXPECT_EQ(main->menuBar()->activeAction(), &Entry("mnuEdit"));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

TEST_F(FrmMainTest, AltEAndAltVOpenTheMenusOverAForm) {
    Make_Report(fy2016);
    QApplication::setActiveWindow(main.get());
    for (const FormMode mode : {FormMode::View, FormMode::Edit}) {
        main->Forms().Open_Worksheet_Form(mode, "A");
        for (const auto& [key, menu] : {std::pair{Qt::Key_E, "mnuEdit"}, {Qt::Key_V, "mnuView"}}) {
            QApplication::setActiveWindow(main.get());
            QTest::keyClick(main.get(), key, Qt::AltModifier);
            EXPECT_EQ(main->menuBar()->activeAction(), &Entry(menu));
            ASSERT_NE(QApplication::activePopupWidget(), nullptr) << menu;
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        }
    }
}

TEST_F(FrmMainTest, ListsOfWorksheetsShowTitlesAndLettersJump) {
    Make_Report(fy2016);
    EXPECT_EQ(Entry("mnuEditOpenA4").text(), "&A-4:  Reclassifications");
    EXPECT_EQ(Entry("mnuViewOpenDp2").text(), "&D  Part-2:  Reimbursement Settlement");
    EXPECT_EQ(Entry("mnuEditOpenA83").text(), "A-8-3 ...") << "a stated caption";
    QMenu& list = main->Menus().Menu("mnuViewOpen");
    list.popup(main->mapToGlobal(QPoint(10, 10)));
    QTest::keyClick(&list, Qt::Key_F);
    EXPECT_EQ(list.activeAction(), &Entry("mnuViewOpenF"));
    QTest::keyClick(&list, Qt::Key_F);
    EXPECT_EQ(list.activeAction(), &Entry("mnuViewOpenF1"));
    list.close();
}

TEST_F(FrmMainTest, CtrlGGoesToAWorksheet) {
    Make_Report(fy2016);
    boxes.Expect_Dialog("frmGoTo", [](QWidget& dialog) {
        auto* line = dialog.findChild<QLineEdit*>("txtWorksheet");
        QTest::keyClicks(line, "s3");
        auto* list = dialog.findChild<QListWidget*>("lstWorksheets");
        ASSERT_EQ(list->count(), 4);
        EXPECT_EQ(list->item(0)->text(), "S-3  Part-1:  Statistical Data");
        QTest::keyClick(line, Qt::Key_Down);
        QTest::keyClick(line, Qt::Key_Return);
    });
    Entry("mnuEditGoTo").trigger();
    EXPECT_NE(main->Forms().Find_Form("S3p2", FormMode::Edit), nullptr);

    boxes.Expect_Dialog("frmGoTo", [](QWidget& dialog) {
        auto* line = dialog.findChild<QLineEdit*>("txtWorksheet");
        QTest::keyClicks(line, "xyz");
        EXPECT_EQ(dialog.findChild<QListWidget*>("lstWorksheets")->count(), 0);
        EXPECT_FALSE(dialog.findChild<QPushButton*>("cmdView")->isEnabled());
        line->clear();
        QTest::keyClicks(line, "b");
        EXPECT_FALSE(dialog.findChild<QPushButton*>("cmdEdit")->isEnabled()) << "B has no edit form";
        QTest::keyClick(line, Qt::Key_Return);
    });
    Entry("mnuEditGoTo").trigger();
    EXPECT_NE(main->Forms().Find_Form("B", FormMode::View), nullptr);

    boxes.Expect_Dialog("frmGoTo", [](QWidget& dialog) { dialog.close(); });
    Entry("mnuEditGoTo").trigger();
    EXPECT_EQ(Open_Forms(), 2U);
}

TEST_F(FrmMainTest, EveryKeyOfTheMenusIsInTheListOfKeys) {
    QString listed;
    for (const KeyRow& row : Key_Rows()) listed += QStringLiteral(", ") + row.keys + ", ";
    for (const MenuRow& row : Menu_Rows()) {
        for (const QString& key : Qt_Text(row.shortcut).split("; ", Qt::SkipEmptyParts)) {
            EXPECT_TRUE(listed.contains(", " + key + ", ")) << row.name << " " << Plain_Text(key);
        }
    }
}

TEST_F(FrmMainTest, StoredRowIsToldAtTheFoot) {
    emit main->Forms().Stored("Worksheet A, line 5: 2 cells stored.");
    EXPECT_EQ(main->statusBar()->currentMessage(), "Worksheet A, line 5: 2 cells stored.");
}

TEST_F(FrmMainTest, ProgressShowsAndGoes) {
    The_Platform().Progress(" Calculating level 4: A");
    EXPECT_TRUE(Find<QLabel>("txtCalcMsg").isVisible());
    EXPECT_EQ(Find<QLabel>("txtCalcMsg").text(), " Calculating level 4: A");
    The_Platform().Progress("");
    EXPECT_FALSE(Find<QLabel>("txtCalcMsg").isVisible());
}

TEST_F(FrmMainTest, EveryControlHasAnAccessibleName) {
    Make_Report(fy1999);
    for (const FormMode mode : {FormMode::Edit, FormMode::View}) {
        for (const char* item : {"A", "A4", "A83p3P", "B1", "S2", "S3p1"}) {
            if (Form_Of(mode, item) == nullptr) continue;
            main->Forms().Open_Worksheet_Form(mode, item);
            main->Forms().Active()->Open_Find();
        }
    }
    EXPECT_EQ(Open_Forms(), 11U);
    for (const QWidget* widget : main->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith("qt_")) continue;
        if (qobject_cast<const QMdiSubWindow*>(widget) != nullptr) continue;
        EXPECT_FALSE(widget->accessibleName().isEmpty() && widget->windowTitle().isEmpty())
            << widget->metaObject()->className() << " " << widget->objectName().toStdString() << " in "
            << widget->parentWidget()->objectName().toStdString();
    }
}

}  // namespace
}  // namespace tallmar
