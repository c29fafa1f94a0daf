// What is keyed while a job runs, and what is left of an entry that the end of the job cuts in two.
#include "shell/job_guard.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace tallmar {
namespace {

class JobGuardTest : public testing::Test {
  protected:
    void Key(int key, const char* text, quint64 time) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(text));
        press.setTimestamp(time);
        QCoreApplication::sendEvent(&line, &press);
    }
    void Digits(const char* text, quint64 time) {
        for (; *text != '\0'; ++text, time += 100) Key(*text, std::string(1, *text).c_str(), time);
    }
    std::string Text() const { return line.text().toStdString(); }

    JobGuard guard;
    QLineEdit line;
};

TEST_F(JobGuardTest, TailOfAnEntryIsThrownAwayWithItsHead) {
    guard.Turn_On();
    Digits("15", 1000);
    guard.Turn_Off();
    Digits("0000", 1200);
    Key(Qt::Key_Delete, "\x7f", 1600);
    EXPECT_EQ(Text(), "");
    Digits("42", 1700);
    EXPECT_EQ(Text(), "42");
}

TEST_F(JobGuardTest, EntryAfterAPauseIsTaken) {
    guard.Turn_On();
    Digits("15", 1000);
    guard.Turn_Off();
    Digits("0", 1900);
    EXPECT_EQ(Text(), "0");
}

TEST_F(JobGuardTest, EntryThatFollowsAFinishedOneIsTaken) {
    guard.Turn_On();
    Digits("15", 1000);
    Key(Qt::Key_Return, "\r", 1200);
    guard.Turn_Off();
    Digits("7", 1300);
    EXPECT_EQ(Text(), "7");
}

TEST_F(JobGuardTest, NextJobBeginsAnew) {
    guard.Turn_On();
    Digits("1", 1000);
    guard.Turn_Off();
    guard.Turn_On();
    guard.Turn_Off();
    Digits("7", 1100);
    EXPECT_EQ(Text(), "7");
}

}  // namespace
}  // namespace tallmar
