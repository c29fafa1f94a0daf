#include "support/desktop/box_driver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <array>

namespace tallmar {

namespace {

constexpr int kPollMilliseconds = 5;

struct ButtonsRow {
    int buttons;
    QMessageBox::StandardButtons shown;
    QMessageBox::StandardButton second;
};
constexpr std::array kButtonsRows{
    ButtonsRow{kOkOnly, QMessageBox::Ok, QMessageBox::NoButton},
    ButtonsRow{kOkCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel},
    ButtonsRow{kYesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No},
    ButtonsRow{kYesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::No},
};

struct IconRow {
    QMessageBox::Icon icon;
    int buttons;
};
constexpr std::array kIconRows{
    IconRow{QMessageBox::NoIcon, 0},
    IconRow{QMessageBox::Critical, kStop},
    IconRow{QMessageBox::Question, kQuestion},
    IconRow{QMessageBox::Warning, kExclamation},
    IconRow{QMessageBox::Information, kInformation},
};

struct AnswerRow {
    Answer answer;
    QMessageBox::StandardButton button;
};
constexpr std::array kAnswerRows{
    AnswerRow{Answer::Ok, QMessageBox::Ok},
    AnswerRow{Answer::Cancel, QMessageBox::Cancel},
    AnswerRow{Answer::Yes, QMessageBox::Yes},
    AnswerRow{Answer::No, QMessageBox::No},
};

// What Message_Box was called with, read back from the box.
int Buttons_Of(const QMessageBox& box) {
    int buttons = 0;
    for (const ButtonsRow& row : kButtonsRows) {
        if (row.shown != box.standardButtons()) continue;
        buttons = row.buttons;
        if (row.second != QMessageBox::NoButton &&
            box.defaultButton() == qobject_cast<QPushButton*>(box.button(row.second))) {
            buttons += kDefaultButton2;
        }
    }
    for (const IconRow& row : kIconRows) {
        if (row.icon == box.icon()) buttons += row.buttons;
    }
    return buttons;
}

std::string Told(const QWidget& modal) {
    const auto* box = qobject_cast<const QMessageBox*>(&modal);
    if (box == nullptr) return "dialog " + modal.objectName().toStdString();
    return "box \"" + box->windowTitle().toStdString() + "\": \"" + box->text().toStdString() + "\"";
}

// A box that nobody answers must not hold the test up.
void Dismiss(QWidget& modal) {
    if (auto* dialog = qobject_cast<QDialog*>(&modal)) {
        dialog->reject();
    } else {
        modal.close();
    }
}

}  // namespace

QAbstractButton* Button_Of(const QWidget& modal, Answer answer) {
    const auto* box = qobject_cast<const QMessageBox*>(&modal);
    if (box == nullptr) return nullptr;
    for (const AnswerRow& row : kAnswerRows) {
        if (row.answer == answer) return box->button(row.button);
    }
    return nullptr;
}

BoxDriver::BoxDriver() {
    Wait();
}

BoxDriver::~BoxDriver() {
    for (const Expected& expected : expected_) {
        ADD_FAILURE() << "never came: "
                      << (expected.dialog.empty() ? "box \"" + expected.title + "\"" : expected.dialog)
                      << (expected.text.empty() ? "" : ": \"" + expected.text + "\"");
    }
}

void BoxDriver::Expect_Box(std::string_view title, std::string_view text, Answer answer, int buttons) {
    expected_.push_back({std::string(title), std::string(text), true, answer, buttons, {}, {}});
}

void BoxDriver::Expect_Box_Starting(std::string_view title, std::string_view textStart, Answer answer, int buttons) {
    expected_.push_back({std::string(title), std::string(textStart), false, answer, buttons, {}, {}});
}

void BoxDriver::Expect_Dialog(std::string_view name, std::function<void(QWidget&)> act) {
    expected_.push_back({{}, {}, true, Answer::None, kAnyButtons, std::string(name), std::move(act)});
}

// A timer of its own each time: one whose handler runs a box's event loop would not fire again inside it.
void BoxDriver::Wait() {
    QTimer::singleShot(kPollMilliseconds, &life_, [this] { Look(); });
}

void BoxDriver::Look() {
    Wait();
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || std::ranges::find(handled_, QPointer<QWidget>(modal)) != handled_.end()) return;
    handled_.emplace_back(modal);
    Answer_Modal(*modal);
    // The same box may be shown again, and a dialog that shows one comes back when it has gone.
    std::erase_if(handled_, [](const QPointer<QWidget>& each) { return each == nullptr || !each->isVisible(); });
}

void BoxDriver::Answer_Modal(QWidget& modal) {
    ++seen_;
    if (expected_.empty()) {
        if (otherwise_ != nullptr && otherwise_(modal)) return;
        ADD_FAILURE() << "unexpected " << Told(modal);
        Dismiss(modal);
        return;
    }
    const Expected expected = std::move(expected_.front());
    expected_.pop_front();
    auto* box = qobject_cast<QMessageBox*>(&modal);
    if (!expected.dialog.empty()) {
        if (modal.objectName().toStdString() != expected.dialog) {
            ADD_FAILURE() << "expected dialog " << expected.dialog << ", found " << Told(modal);
            Dismiss(modal);
            return;
        }
        expected.act(modal);
        return;
    }
    if (box == nullptr) {
        ADD_FAILURE() << "expected box \"" << expected.title << "\", found " << Told(modal);
        Dismiss(modal);
        return;
    }
    const std::string text = box->text().toStdString();
    if (box->windowTitle().toStdString() != expected.title ||
        (expected.wholeText ? text != expected.text : !text.starts_with(expected.text))) {
        ADD_FAILURE() << "another box than expected: " << Told(modal) << "\n  expected "
                      << (expected.wholeText ? "" : "(start) ") << "\"" << expected.title << "\": \"" << expected.text
                      << "\"";
    }
    if (expected.buttons != kAnyButtons) {
        EXPECT_EQ(Buttons_Of(*box), expected.buttons) << Told(modal);
    }
    QAbstractButton* button = Button_Of(*box, expected.answer);
    if (button == nullptr) {
        ADD_FAILURE() << Told(modal) << " does not offer the answer " << static_cast<int>(expected.answer);
        Dismiss(modal);
    } else {
        button->click();
    }
}

}  // namespace tallmar
