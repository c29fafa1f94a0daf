// A person at the whole program on a screen with a window manager: keys and clicks come through the window system, and
// boxes are answered by them too.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <string>
#include <string_view>
#include <vector>

#include "shell/focus/x_screen.h"
#include "shell/journeys/desk.h"

namespace tallmar {

// The screen that the program of the tests runs on.
const XScreen& The_Screen();

// How a box is answered.
enum class AnswerBy : std::uint8_t { Key, Click };

class Person : public QObject {
  public:
    explicit Person(const FiscalYear& year);
    ~Person() override;

    // Each waits until the program has got the key.
    void Press(const char* key, const char* held = "");
    void Type(std::string_view text);
    // A click into the middle of a cell of the form at work.
    void Click(const LineRef& line, const ColumnRef& column);
    // Every message box that comes from now on gets this answer. Other dialogs are left by Escape.
    void Will_Answer(Answer answer, AnswerBy by = AnswerBy::Key) {
        answer_ = answer;
        by_ = by;
    }
    // The titles of the boxes that came since the last time.
    std::vector<std::string> Take_Boxes() { return std::exchange(boxes_, {}); }

    // Waits until the window manager has made the main window the active one, and tells whether the keyboard is then in
    // the grid of the form at work, at the cell.
    testing::AssertionResult Is_At(const LineRef& line, const ColumnRef& column);
    // The same of any widget of the window.
    testing::AssertionResult Has_Keyboard(const QWidget& widget);

    Desk desk;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Wait_For_Keys(int keys);
    bool Answer_Box(QWidget& box);

    Answer answer_ = Answer::Ok;
    AnswerBy by_ = AnswerBy::Key;
    std::vector<std::string> boxes_;
    int released_ = 0;  // keys whose release came to a window of the program
};

}  // namespace tallmar
