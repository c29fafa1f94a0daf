#include "shell/given_places.h"

#include <QEvent>

namespace tallmar {

GivenPlaces::GivenPlaces(QMdiArea* area) : QObject(area), area_(area), viewport_(area->viewport()) {
    viewport_->installEventFilter(this);
}

void GivenPlaces::Note(QMdiSubWindow& window) {
    if (!given_.contains(&window)) {
        connect(&window, &QObject::destroyed, this, [this](const QObject* gone) { given_.remove(gone); });
    }
    given_[&window] = window.geometry();
}

void GivenPlaces::Note_All() {
    for (QMdiSubWindow* window : area_->subWindowList()) Note(*window);
}

bool GivenPlaces::Is_Moved(const QMdiSubWindow& window) const {
    return given_.value(&window).topLeft() != window.pos();
}

bool GivenPlaces::Is_Sized(const QMdiSubWindow& window) const {
    return given_.value(&window).size() != window.size();
}

bool GivenPlaces::eventFilter(QObject* watched, QEvent* event) {
    // As the area goes its viewport still has events, but none of its size.
    if (watched != viewport_ || event->type() != QEvent::Resize) return false;
    QList<QMdiSubWindow*> untouched = area_->subWindowList();
    untouched.removeIf([this](const QMdiSubWindow* window) { return Is_Moved(*window) || Is_Sized(*window); });
    // After the area has laid them out.
    const auto note = [this, untouched] {
        for (QMdiSubWindow* window : area_->subWindowList()) {
            if (untouched.contains(window)) Note(*window);
        }
    };
    QMetaObject::invokeMethod(this, note, Qt::QueuedConnection);
    return false;
}

}  // namespace tallmar
