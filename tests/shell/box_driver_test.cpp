// The tests' answerer of boxes is itself strict.
#include "support/desktop/box_driver.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QDialog>

#include "shell/desktop_platform_boxes.h"

namespace tallmar {
namespace {

TEST(BoxDriverTest, ExpectedBoxGetsItsAnswer) {
    BoxDriver boxes;
    boxes.Expect_Box("Title", "Text", Answer::Cancel, kOkCancel + kQuestion + kDefaultButton2);
    EXPECT_EQ(Show_Message_Box(nullptr, "Text", kOkCancel + kQuestion + kDefaultButton2, "Title"), Answer::Cancel);
    EXPECT_TRUE(boxes.Done());
}

TEST(BoxDriverTest, UnexpectedBoxFailsAndIsDismissed) {
    EXPECT_NONFATAL_FAILURE(
        {
            const BoxDriver boxes;
            Show_Message_Box(nullptr, "Text", kOkOnly, "Title");
        },
        "unexpected box \"Title\": \"Text\"");
}

TEST(BoxDriverTest, BoxThatNeverComesFails) {
    EXPECT_NONFATAL_FAILURE(
        {
            BoxDriver boxes;
            boxes.Expect_Box("Title", "Text");
        },
        "never came: box \"Title\": \"Text\"");
}

TEST(BoxDriverTest, AnotherTextFails) {
    EXPECT_NONFATAL_FAILURE(
        {
            BoxDriver boxes;
            boxes.Expect_Box("Title", "Text");
            Show_Message_Box(nullptr, "Another", kOkOnly, "Title");
        },
        "another box than expected");
}

TEST(BoxDriverTest, DialogIsDrivenAndItsBoxIsAnswered) {
    BoxDriver boxes;
    boxes.Expect_Dialog("frmTest", [](QWidget& dialog) {
        EXPECT_EQ(Show_Message_Box(nullptr, "Close?", kYesNo + kQuestion, "Sure"), Answer::Yes);
        static_cast<QDialog&>(dialog).accept();
    });
    boxes.Expect_Box("Sure", "Close?", Answer::Yes, kYesNo + kQuestion);
    QDialog dialog;
    dialog.setObjectName("frmTest");
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
}

}  // namespace
}  // namespace tallmar
