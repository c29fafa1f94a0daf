#include "shell/job_guard.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <array>

namespace tallmar {

namespace {

constexpr std::array kInput{
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::Shortcut,
    QEvent::ShortcutOverride,
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::Wheel,
    QEvent::ContextMenu,
    QEvent::TouchBegin,
    QEvent::TouchUpdate,
    QEvent::TouchEnd,
    QEvent::TabletPress,
    QEvent::TabletRelease,
    QEvent::InputMethod,
    QEvent::DragEnter,
    QEvent::DragMove,
    QEvent::Drop,
    QEvent::NonClientAreaMouseButtonPress,
    QEvent::NonClientAreaMouseButtonRelease,
    QEvent::NonClientAreaMouseButtonDblClick,
};

}  // namespace

JobGuard::JobGuard(QObject* parent) : QObject(parent) {}

JobGuard::~JobGuard() {
    qApp->removeEventFilter(this);
}

void JobGuard::Turn_On() {
    if (on_) return;
    on_ = true;
    qApp->installEventFilter(this);
}

void JobGuard::Turn_Off() {
    if (!on_) return;
    if (pauses_ == 0) QCoreApplication::processEvents();
    on_ = false;
    qApp->removeEventFilter(this);
}

JobGuard::Pause::Pause(JobGuard& guard) : guard_(guard) {
    // What was keyed before the box came must not answer it.
    if (guard_.on_ && guard_.pauses_ == 0) QCoreApplication::processEvents();
    ++guard_.pauses_;
}

JobGuard::Pause::~Pause() {
    --guard_.pauses_;
}

bool JobGuard::eventFilter(QObject* watched, QEvent* event) {
    if (pauses_ > 0) return QObject::eventFilter(watched, event);
    // The window system asks a window to close; the program's own closing of forms goes on.
    const bool closing = event->type() == QEvent::Close && event->spontaneous();
    if (!closing && std::ranges::find(kInput, event->type()) == kInput.end()) {
        return QObject::eventFilter(watched, event);
    }
    event->ignore();
    return true;
}

}  // namespace tallmar
