// Answers the real boxes and dialogs that a test's action opens. Strict: a box that no test expects fails the test and
// is dismissed, and so does an expected box that never comes. Runs while an event loop runs, that of the box included.
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/platform.h"

class QAbstractButton;

namespace tallmar {

// The button of a message box that gives the answer; null where it offers none, or is no message box.
QAbstractButton* Button_Of(const QWidget& modal, Answer answer);

class BoxDriver {
  public:
    BoxDriver();
    ~BoxDriver();
    BoxDriver(const BoxDriver&) = delete;
    BoxDriver& operator=(const BoxDriver&) = delete;

    static constexpr int kAnyButtons = -1;
    // A message box; `buttons` are its buttons, icon and default as Platform::Message_Box takes them. The answer is
    // given by a click on the button.
    void Expect_Box(std::string_view title, std::string_view text, Answer answer = Answer::Ok,
                    int buttons = kAnyButtons);
    void Expect_Box_Starting(std::string_view title, std::string_view textStart, Answer answer = Answer::Ok,
                             int buttons = kAnyButtons);
    // Any other modal window by its object name ("frmHelpAbout"). `act` drives it and closes it in the end; boxes that
    // it opens meanwhile are answered from the same queue.
    void Expect_Dialog(std::string_view name, std::function<void(QWidget&)> act);

    // For what is not expected: true where `handle` has closed the window. Without it, and where it answers false, the
    // test fails.
    void Otherwise(std::function<bool(QWidget&)> handle) { otherwise_ = std::move(handle); }

    // Whether everything expected has come.
    bool Done() const { return expected_.empty(); }
    int Boxes_Seen() const { return seen_; }

  private:
    struct Expected {
        std::string title, text;
        bool wholeText = true;
        Answer answer = Answer::Ok;
        int buttons = kAnyButtons;
        std::string dialog;  // empty: a message box
        std::function<void(QWidget&)> act;
    };
    void Look();
    void Wait();
    void Answer_Modal(QWidget& modal);

    std::deque<Expected> expected_;
    std::function<bool(QWidget&)> otherwise_;
    std::vector<QPointer<QWidget>> handled_;
    QObject life_;  // no look after the driver has gone
    int seen_ = 0;
};

}  // namespace tallmar
