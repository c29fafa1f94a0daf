// The three tags of the help text's timer.
#include "shell/help_scroller.h"

#include <gtest/gtest.h>

namespace tallmar {
namespace {

TEST(HelpScrollerTest, EmptyTagStartsWithFourteenLineBreaks) {
    HelpScroll scroll{"", "Help"};
    Scroll_Help(scroll);
    EXPECT_EQ(scroll.tag, "Running");
    EXPECT_EQ(scroll.text, QString(14, '\n') + "Help");
    EXPECT_TRUE(scroll.ticking);
}

TEST(HelpScrollerTest, LineBreaksThatStoodThereAreStripped) {
    HelpScroll scroll{"", "\n\n\nHelp\nme"};
    Scroll_Help(scroll);
    EXPECT_EQ(scroll.text, QString(14, '\n') + "Help\nme");
}

TEST(HelpScrollerTest, RunningTakesOneLineBreakATime) {
    HelpScroll scroll{"Running", "\n\nHelp"};
    Scroll_Help(scroll);
    EXPECT_EQ(scroll.text, "\nHelp");
    EXPECT_TRUE(scroll.ticking);
}

TEST(HelpScrollerTest, RunningStopsTheTimerAtTheText) {
    HelpScroll scroll{"Running", "Help"};
    Scroll_Help(scroll);
    EXPECT_EQ(scroll.text, "Help");
    EXPECT_FALSE(scroll.ticking);
}

TEST(HelpScrollerTest, StoppedDoesNothing) {
    HelpScroll scroll{"Stopped", "\nHelp"};
    Scroll_Help(scroll);
    EXPECT_EQ(scroll.tag, "Stopped");
    EXPECT_EQ(scroll.text, "\nHelp");
    EXPECT_TRUE(scroll.ticking);
}

}  // namespace
}  // namespace tallmar
