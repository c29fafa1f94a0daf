#include "shell/job_guard.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
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

// Who stops for so long begins a new entry.
constexpr quint64 kEntryMilliseconds = 700;

bool Is_Character(const QKeyEvent& key) {
    const bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !command && !key.text().isEmpty() && key.text().front().isPrint();
}
bool Is_Modifier(const QKeyEvent& key) {
    return key.key() == Qt::Key_Shift || key.key() == Qt::Key_Control || key.key() == Qt::Key_Alt;
}

}  // namespace

JobGuard::JobGuard(QObject* parent) : QObject(parent) {}

JobGuard::~JobGuard() {
    qApp->removeEventFilter(this);
}

void JobGuard::Turn_On() {
    if (on_) return;
    on_ = true;
    cutEntry_.reset();
    qApp->installEventFilter(this);
}

void JobGuard::Turn_Off() {
    if (!on_) return;
    if (pauses_ == 0) QCoreApplication::processEvents();
    on_ = false;
    if (!cutEntry_) qApp->removeEventFilter(this);
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
    if (pauses_ > 0 || !Throws_Away(*event)) return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

bool JobGuard::Throws_Away(const QEvent& event) {
    const auto* key = event.type() == QEvent::KeyPress ? static_cast<const QKeyEvent*>(&event) : nullptr;
    if (on_) return Throws_Away_During_Job(event, key);
    if (!cutEntry_ || (key == nullptr && event.type() != QEvent::MouseButtonPress)) return false;
    return Throws_Away_After_Job(key);
}

bool JobGuard::Throws_Away_During_Job(const QEvent& event, const QKeyEvent* key) {
    if (key != nullptr && !Is_Modifier(*key)) {
        cutEntry_ = Is_Character(*key) ? std::optional(quint64(key->timestamp())) : std::nullopt;
    }
    // The window system asks a window to close; the program's own closing of forms goes on.
    const bool closing = event.type() == QEvent::Close && event.spontaneous();
    return closing || std::ranges::find(kInput, event.type()) != kInput.end();
}

bool JobGuard::Throws_Away_After_Job(const QKeyEvent* key) {
    if (key != nullptr && Is_Modifier(*key)) return false;
    const bool goesOn = key != nullptr && key->timestamp() < *cutEntry_ + kEntryMilliseconds;
    // The key that ends the entry goes with it.
    if (goesOn && Is_Character(*key)) {
        cutEntry_ = key->timestamp();
    } else {
        cutEntry_.reset();
        qApp->removeEventFilter(this);
    }
    return goesOn;
}

}  // namespace tallmar
