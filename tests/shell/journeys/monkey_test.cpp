// Keys, clicks and menu entries at random, the same each time. Whatever is done, the program goes on, nothing fails by
// an engine's error, and the report can be closed and opened again.
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <random>

#include "report/open_report.h"
#include "report/store.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"
#include "shell/journeys/sample.h"

namespace tallmar {

namespace {

constexpr int kActions = 500;

// Boxes that tell of a trouble that no person can make by keys and clicks.
constexpr const char* kTroubles[] = {"System Error",
                                     "Error: Entry Not Stored",
                                     "Entry Not Stored",
                                     "Error: Calculation Failed",
                                     "Error: Worksheet Not Finished",
                                     "CRITICAL ERROR"};

constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Tab,    Qt::Key_Backtab,   Qt::Key_Up,   Qt::Key_Down,
                             Qt::Key_Left,   Qt::Key_Right,  Qt::Key_PageDown,  Qt::Key_Home, Qt::Key_End,
                             Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F2,   Qt::Key_F6};
constexpr Qt::Key kWithControl[] = {Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_Z, Qt::Key_F6, Qt::Key_W, Qt::Key_Home};
constexpr const char* kTexts[] = {"7",  "12.5", "(45)", "lots", "Y", "A",  "10/1/2015",
                                  "-3", "5.01", "1400", "0",    "'", "\"", "Harlan & Sons"};
constexpr const char* kButtons[] = {"cmdAdd",  "cmdDelete",   "cmdOpenView", "cmdOpenEdit",
                                    "cmdNext", "cmdPrevious", "cmdClose",    "cmdRecalculate"};
constexpr const char* kEntries[] = {"mnuWindowTabbed",  "mnuWindowCascade", "mnuWindowTile", "mnuWindowZoomIn",
                                    "mnuWindowZoomOut", "mnuEditUndo",      "mnuEditPaste",  "mnuReportCalculate",
                                    "mnuEditClose",     "mnuViewCloseAll"};
constexpr const char* kWorksheets[] = {"A",  "A4", "A5", "A6pA", "A6pB", "A6pC", "A7", "B1",
                                       "D1", "F",  "S2", "S3p1", "S3p2", "S3p3", "Dp2"};

class Monkey : public testing::TestWithParam<Sample> {
  protected:
    Monkey() {
        QObject::connect(&desk.main->Forms(), &FormWindows::Stored, desk.main.get(), [this] { ++rowsStored_; });
        desk.boxes.Otherwise([this](QWidget& modal) { return Answer_It(modal); });
    }
    std::size_t Below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
    template <class T, std::size_t count>
    const T& One_Of(const T (&all)[count]) {
        return all[Below(count)];
    }
    bool Answer_It(QWidget& modal);
    void Act();
    void Click();

    Desk desk;
    int rowsStored_ = 0;

  private:
    std::mt19937 random_{1728};
};

bool Monkey::Answer_It(QWidget& modal) {
    // Of a message box.
    const auto* box = modal.findChild<QDialogButtonBox*>("qt_msgbox_buttonbox");
    if (box == nullptr) {
        static_cast<QDialog&>(modal).reject();
        return true;
    }
    for (const char* trouble : kTroubles) {
        EXPECT_NE(modal.windowTitle(), trouble) << Plain_Text(modal.findChild<QLabel*>("qt_msgbox_label")->text());
    }
    const QList<QAbstractButton*> buttons = box->buttons();
    buttons[qsizetype(Below(std::size_t(buttons.size())))]->click();
    return true;
}

void Monkey::Click() {
    WorksheetForm* form = desk.main->Forms().Active();
    if (form == nullptr) return;
    QWidget* grid = form->Grid().viewport();
    const QPoint at(int(Below(std::size_t(grid->width()) + 1)), int(Below(std::size_t(grid->height()) + 1)));
    Below(4) == 0 ? QTest::mouseDClick(grid, Qt::LeftButton, {}, at) : QTest::mouseClick(grid, Qt::LeftButton, {}, at);
}

void Monkey::Act() {
    WorksheetForm* form = desk.main->Forms().Active();
    switch (form == nullptr ? 0 : Below(12)) {
        case 0: {
            const std::string name = (Below(3) == 0 ? "mnuViewOpen" : "mnuEditOpen") + std::string(One_Of(kWorksheets));
            return desk.Entry(name).trigger();
        }
        case 1:
            return desk.Entry(One_Of(kEntries)).trigger();
        case 2: {
            auto* button = form->findChild<QPushButton*>(QLatin1String(One_Of(kButtons)));
            if (button != nullptr) button->click();
            return;
        }
        case 3:
            return Desk::Press(One_Of(kWithControl), Qt::ControlModifier);
        case 4:
        case 5:
            return Click();
        case 6:
        case 7:
        case 8:
            return Desk::Type(One_Of(kTexts));
        default:
            return Desk::Press(One_Of(kKeys));
    }
}

TEST_P(Monkey, BreaksNothing) {
    Make_Sample(GetParam(), desk.Report_Path());
    desk.Open(desk.Report_Path());
    QApplication::clipboard()->setText("1\t2\n3\tlots\n");
    for (int i = 0; i < kActions && !HasFailure(); ++i) {
        SCOPED_TRACE("action " + std::to_string(i));
        Act();
        Desk::Settle();
        ASSERT_TRUE(Report_Is_Open());
        ASSERT_FALSE(desk.platform.Guard().Is_On());
        ASSERT_TRUE(desk.main->isEnabled());
    }
    EXPECT_GT(desk.boxes.Boxes_Seen(), 10);
    EXPECT_GT(rowsStored_, 10);
    desk.main->Forms().Close_Form_Family("");
    Desk::Settle();
    desk.main->Forms().Drop_All();
    desk.Choose("mnuReportClose");
    EXPECT_FALSE(Report_Is_Open());
    desk.Open(desk.Report_Path());
    EXPECT_TRUE(Report_Is_Open());
    desk.Choose("mnuReportCalculate");
}

INSTANTIATE_TEST_SUITE_P(Periods, Monkey, testing::ValuesIn(Samples().begin(), Samples().end()),
                         [](const auto& period) { return std::string(period.param.name); });

}  // namespace

}  // namespace tallmar
