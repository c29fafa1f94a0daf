#include "shell/frm_header_lines.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "report/open_report.h"
#include "report/registry.h"
#include "shell/dialog_test.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

constexpr const char* kSixty = "123456789-123456789-123456789-123456789-123456789-123456789-";
constexpr std::string_view kTooLong = "The maximum length of a custom header line is 60 characters";

class HeaderLinesFormTest : public testing::Test {
  protected:
    void Show() {
        form = Make_Header_Lines(nullptr);
        Open(*form);
        grid = &Child<QTableWidget>(*form, "grd");
    }
    Value Line(int number) const {
        return report.Read("SELECT LineText FROM HeaderLines WHERE LineNum = " + std::to_string(number) + ";");
    }
    // What is being typed; null when no cell is under edit.
    QLineEdit* Editor() const { return grid->findChild<QLineEdit*>(); }
    void Expect_Refusal() { report.platform.Expect_Box("Invalid Length Entry", kTooLong, Answer::Ok, kStop); }

    Report report{fy2016};
    DialogPtr form;
    QTableWidget* grid = nullptr;
};

}  // namespace

TEST_F(HeaderLinesFormTest, ShowsTheThreeLines) {
    report.Execute("UPDATE HeaderLines SET LineText = 'As submitted' WHERE LineNum = 2;");
    Show();
    EXPECT_EQ(form->objectName(), "frmHeaderLines");
    ASSERT_EQ(grid->rowCount(), 3);
    EXPECT_EQ(grid->item(0, 0)->text(), "");
    EXPECT_EQ(grid->item(1, 0)->text(), "As submitted");
    EXPECT_EQ(grid->verticalHeaderItem(2)->text(), "3");
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualItemRect(grid->item(2, 0))));
}

TEST_F(HeaderLinesFormTest, LinesAreStoredAndPrintedFromThenOn) {
    Show();
    Type("First line");
    Press(Qt::Key_Tab);
    Type("Second line");
    Press(Qt::Key_Return);
    EXPECT_EQ(Line(1), Value("First line"));
    EXPECT_EQ(Line(2), Value("Second line"));
    EXPECT_EQ(openReport.HeaderLine2, "Second line");
    Press(Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(HeaderLinesFormTest, LineOfSixtyCharactersIsTakenAndOfSixtyOneRefused) {
    Show();
    Type(kSixty);
    Press(Qt::Key_Return);
    EXPECT_EQ(Line(1), Value(kSixty));
    Expect_Refusal();
    const std::string longer = std::string(kSixty) + "1";
    Type(longer.c_str());
    Press(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(report.platform.beeps, 1);
    EXPECT_EQ(Line(1), Value(kSixty));
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->text().toStdString(), longer);
    EXPECT_EQ(QApplication::focusWidget(), Editor());
}

TEST_F(HeaderLinesFormTest, RefusedLineIsMendedWhereItStands) {
    Show();
    Expect_Refusal();
    Type((std::string(kSixty) + "1").c_str());
    Press(Qt::Key_Tab);
    QCoreApplication::processEvents();
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(grid->currentRow(), 0);
    Press(Qt::Key_End);
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    EXPECT_EQ(Line(1), Value(kSixty));
}

TEST_F(HeaderLinesFormTest, EscInTheCellGivesTheRefusedTextUp) {
    report.Execute("UPDATE HeaderLines SET LineText = 'As submitted' WHERE LineNum = 1;");
    Show();
    Expect_Refusal();
    Type((std::string(kSixty) + "1").c_str());
    Press(Qt::Key_Return);
    QCoreApplication::processEvents();
    Press(Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(grid->item(0, 0)->text(), "As submitted");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Line(1), Value("As submitted"));
}

TEST_F(HeaderLinesFormTest, ClosingStoresTheLineUnderEdit) {
    Show();
    Type("Under edit");
    form->close();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Line(1), Value("Under edit"));
}

TEST_F(HeaderLinesFormTest, ClosingWaitsForALineThatIsRefused) {
    Show();
    Expect_Refusal();
    Type((std::string(kSixty) + "1").c_str());
    QTest::mouseClick(&Child<QPushButton>(*form, "cmdClose"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(form->isVisible());
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->text().size(), 61);
}

TEST_F(HeaderLinesFormTest, EmptiedLineIsNoLine) {
    report.Execute("UPDATE HeaderLines SET LineText = 'As submitted' WHERE LineNum = 1;");
    Show();
    Press(Qt::Key_F2);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    EXPECT_EQ(Line(1), Null);
    EXPECT_EQ(openReport.HeaderLine1, "");
}

TEST_F(HeaderLinesFormTest, OlderReportGetsTheTable) {
    Drop_Worksheet("HeaderLines");
    Show();
    EXPECT_EQ(grid->rowCount(), 3);
    EXPECT_TRUE(TableExists("HeaderLines", true));
}

}  // namespace tallmar
