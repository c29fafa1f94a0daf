// What holds of the controls of every dialog: each has a name that can be read out, is reached by Tab, and no two share
// an access key.
#include <QAbstractButton>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <map>
#include <set>

#include "shell/dialog_test.h"
#include "shell/frm_backups.h"
#include "shell/frm_batch_msgs.h"
#include "shell/frm_create_new_crf.h"
#include "shell/frm_crf_edit_key.h"
#include "shell/frm_go_to.h"
#include "shell/frm_header_lines.h"
#include "shell/frm_help_about.h"
#include "shell/frm_help_keys.h"
#include "support/report_fixture.h"

namespace tallmar {

namespace {

DialogPtr Some_Messages() {
    static const Platform::BatchMessage messages[] = {{"E", "A", "One"}, {"W", "S3p1", "Two"}};
    return Make_Batch_Msgs(nullptr, "Title", messages);
}

DialogPtr Some_Backups() {
    static const KeptBackup backups[] = {{"/backups/1.CRF", "/home/pat/Agency.CRF", Date{42000}, 1, 2048}};
    static std::string chosen;
    return Make_Backups(nullptr, backups, chosen);
}

DialogPtr Go_To_Worksheets() {
    static WorksheetChoice choice{FormMode::View, {}};
    return Make_Go_To(nullptr, {{"A", "A", "Trial balance", true}, {"B", "B", "", false}}, choice);
}

struct DialogCase {
    const char* name;
    DialogPtr (*make)();
};
constexpr DialogCase kDialogs[] = {
    {"frmHelpAbout", [] { return Make_Help_About(nullptr); }},
    {"frmCreateNewCRF", [] { return Make_Create_New_CRF(nullptr); }},
    {"frmCRFEditKey", [] { return Make_CRF_Edit_Key(nullptr, {}); }},
    {"frmBatchMsgs", Some_Messages},
    {"frmHeaderLines", [] { return Make_Header_Lines(nullptr); }},
    {"frmHelpKeys", [] { return Make_Help_Keys(nullptr, "A note"); }},
    {"frmGoTo", Go_To_Worksheets},
    {"frmBackups", Some_Backups},
};

class DialogControlsTest : public testing::TestWithParam<DialogCase> {
  protected:
    DialogControlsTest() { Open(*form); }
    // What a person can put the focus on.
    std::set<const QWidget*> Controls() const {
        std::set<const QWidget*> controls;
        for (const QWidget* widget : form->findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0) {
                controls.insert(widget);
            }
        }
        return controls;
    }

    Report report{fy2016};
    DialogPtr form = GetParam().make();
};

}  // namespace

TEST_P(DialogControlsTest, FormBearsItsNameAndACaption) {
    EXPECT_EQ(form->objectName(), GetParam().name);
    EXPECT_FALSE(form->windowTitle().isEmpty());
}

TEST_P(DialogControlsTest, EveryControlHasItsNameAndOneToReadOut) {
    ASSERT_FALSE(Controls().empty());
    for (const QWidget* control : Controls()) {
        EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
    }
}

TEST_P(DialogControlsTest, TabReachesEveryControlAndComesBack) {
    std::set<const QWidget*> reached;
    const QWidget* first = QApplication::focusWidget();
    ASSERT_NE(first, nullptr);
    constexpr int kMost = 20;
    for (int step = 0; step < kMost && (step == 0 || QApplication::focusWidget() != first); ++step) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget(), first);
    EXPECT_EQ(reached, Controls());
}

TEST_P(DialogControlsTest, NoTwoAccessKeysAreEqual) {
    std::map<QString, int> keys;
    const auto note = [&keys](const QString& caption) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (!key.isEmpty()) ++keys[key.toString()];
    };
    for (const QLabel* label : form->findChildren<QLabel*>()) {
        note(label->text());
        EXPECT_EQ(label->buddy() != nullptr, !QKeySequence::mnemonic(label->text()).isEmpty())
            << label->text().toStdString();
    }
    for (const QAbstractButton* button : form->findChildren<QAbstractButton*>()) note(button->text());
    EXPECT_FALSE(keys.empty());
    for (const auto& [key, count] : keys) EXPECT_EQ(count, 1) << key.toStdString();
}

TEST_P(DialogControlsTest, EscClosesItAndOneButtonIsTheDefault) {
    int defaults = 0;
    for (const QPushButton* button : form->findChildren<QPushButton*>()) defaults += button->isDefault() ? 1 : 0;
    EXPECT_EQ(defaults, 1);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_P(DialogControlsTest, LargeFontsEnlargeItSoThatNothingIsCutOff) {
    QFont large = form->font();
    large.setPointSizeF(2 * large.pointSizeF());
    const QSize before = form->sizeHint();
    form->setFont(large);
    EXPECT_GT(form->sizeHint().height(), before.height());
    form->resize(form->sizeHint());
    QTest::qWait(1);
    for (const QAbstractButton* button : form->findChildren<QAbstractButton*>()) {
        if (!button->isVisible()) continue;
        const QString shown = button->text().remove('&');
        EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(shown)) << shown.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Every, DialogControlsTest, testing::ValuesIn(kDialogs),
                         [](const auto& dialog) { return std::string(dialog.param.name); });

}  // namespace tallmar
