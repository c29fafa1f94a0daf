#include "shell/frm_batch_msgs.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

#include "shell/dialog_test.h"

namespace tallmar {

namespace {

constexpr const char* kTitle = "The following messages were generated during the NewCRF process.";

std::string Words() {
    std::string words;
    for (int i = 0; i < 100; ++i) words += "words ";
    return words;
}

const std::vector<Platform::BatchMessage>& Messages() {
    static const std::vector<Platform::BatchMessage> messages{
        {"E", "A", "First\rof two lines"},
        {"W", "Cp2m1600", Words()},
        {"E", "S3p1", "Last"},
    };
    return messages;
}

class BatchMsgsTest : public testing::Test {
  protected:
    BatchMsgsTest() { Open(*form); }
    QString Cell(int row, int column) const { return grid.item(row, column)->text(); }

    DialogPtr form = Make_Batch_Msgs(nullptr, kTitle, Messages());
    QTableWidget& grid = Child<QTableWidget>(*form, "flxGrid");
};

}  // namespace

TEST_F(BatchMsgsTest, ListsTheMessagesInTheirOrderUnderTheTitle) {
    EXPECT_EQ(form->objectName(), "frmBatchMsgs");
    EXPECT_EQ(Child<QLabel>(*form, "tbTitle").text(), kTitle);
    ASSERT_EQ(grid.columnCount(), 3);
    EXPECT_EQ(grid.horizontalHeaderItem(0)->text(), "Level");
    EXPECT_EQ(grid.horizontalHeaderItem(1)->text(), "Form");
    EXPECT_EQ(grid.horizontalHeaderItem(2)->text(), "Message");
    ASSERT_EQ(grid.rowCount(), 3);
    EXPECT_EQ(Cell(0, 0), "E");
    EXPECT_EQ(Cell(1, 1), "Cp2m1600");
    EXPECT_EQ(Cell(0, 2), "First\nof two lines");
    EXPECT_EQ(Cell(2, 2), "Last");
}

TEST_F(BatchMsgsTest, FirstColumnsHoldFourCharactersAndTheirWords) {
    const int four = grid.fontMetrics().horizontalAdvance("WWWW");
    EXPECT_GE(grid.columnWidth(0), four);
    EXPECT_GE(grid.columnWidth(1), grid.fontMetrics().horizontalAdvance("Cp2m1600"));
}

TEST_F(BatchMsgsTest, MessageTakesWhatTheOthersLeaveAndWraps) {
    const auto takesTheRest = [this] {
        return grid.columnWidth(0) + grid.columnWidth(1) + grid.columnWidth(2) == grid.viewport()->width();
    };
    QTest::qWait(20);
    EXPECT_TRUE(takesTheRest());
    const int before = grid.columnWidth(2);
    form->resize(form->width() / 2, form->height() + 50);
    QTest::qWait(20);
    EXPECT_TRUE(takesTheRest());
    EXPECT_LT(grid.columnWidth(2), before);
    EXPECT_GT(grid.rowHeight(0), grid.rowHeight(2));
    EXPECT_GT(grid.rowHeight(1), grid.rowHeight(0));
}

TEST_F(BatchMsgsTest, CopiesTheSelectedRowsOrAll) {
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 3);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("E\tA\tFirst of two lines\nW\tCp2m1600\twords"));
    grid.selectRow(2);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "E\tS3p1\tLast\n");
}

TEST_F(BatchMsgsTest, TabReachesTheButtonAndEnterCloses) {
    EXPECT_EQ(QApplication::focusWidget(), &grid);
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "cmdClose");
    Press(Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
}

TEST(BatchMsgs, StandsUntilItIsClosed) {
    QString name;
    When_Modal([&name](QDialog& dialog) {
        name = dialog.objectName();
        Press(Qt::Key_Escape);
    });
    Show_Batch_Msgs(nullptr, kTitle, Messages());
    EXPECT_EQ(name, "frmBatchMsgs");
}

TEST(BatchMsgs, JobWithNoMessageShowsNoList) {
    Show_Batch_Msgs(nullptr, kTitle, {});
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(BatchMsgs, AdviceFollowsTheMessage) {
    const Platform::BatchMessage messages[] = {{"E", "B1", "CALC_B1: No record found with LineNum = 30."},
                                               {"W", "S3p1", "A message that says it all"},
                                               {"E", "A", "No current record in 'A'"}};
    const DialogPtr dialog = Make_Batch_Msgs(nullptr, "Title", messages);
    dialog->show();
    auto& grid = Child<QTableWidget>(*dialog, "flxGrid");
    const auto& advice = Child<QLabel>(*dialog, "lblAdvice");
    EXPECT_TRUE(advice.text().startsWith("A line or a worksheet that is needed here is gone from the report."));
    EXPECT_TRUE(advice.isVisible());
    grid.setCurrentCell(1, 2);
    EXPECT_FALSE(advice.isVisible());
    grid.setCurrentCell(2, 2);
    EXPECT_TRUE(advice.isVisible());
}

}  // namespace tallmar
