// What tests of dialogs share: a platform that expects boxes, and controls by their names.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <functional>

#include "support/fake_platform.h"

namespace tallmar {

template <class Control = QWidget>
Control& Child(const QWidget& form, const char* name) {
    auto* found = form.findChild<Control*>(QLatin1String(name));
    if (found == nullptr) throw std::logic_error(std::string("no control ") + name);
    return *found;
}

// On the screen, with the keyboard.
inline void Open(QWidget& form) {
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
}

// To whatever has the focus, as a person does.
inline void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    QCoreApplication::processEvents();
}
inline void Type(const char* text) {
    for (; *text != 0; ++text) QTest::keyClick(QApplication::focusWidget(), *text);
    QCoreApplication::processEvents();
}

// Runs `act` once a dialog stands modally, with that dialog.
inline void When_Modal(std::function<void(QDialog&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return When_Modal(act);
        QApplication::setActiveWindow(dialog);
        act(*dialog);
    });
}

}  // namespace tallmar
