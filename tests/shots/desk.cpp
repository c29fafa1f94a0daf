#include "shots/desk.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QHash>
#include <QImage>
#include <QImageWriter>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

template <class T>
T& Find(const QWidget& where, std::string_view name) {
    T* const found = where.findChild<T*>(Qt_Text(name));
    if (found == nullptr)
        Tour_Failed("There is no " + Qt_Text(name) + " in " + where.objectName() + " " + where.windowTitle());
    return *found;
}

// Small files: as many bits of each colour as let a palette of 256 hold them all.
QImage With_Palette(const QImage& screen) {
    const QImage image = screen.convertToFormat(QImage::Format_RGB32);
    for (int bits = 0;; ++bits) {
        const QRgb mask = 0xFFU << bits & 0xFFU;
        const QRgb kept = 0xFF000000U | mask << 16U | mask << 8U | mask;
        // The middle of what falls together; white stays white.
        const QRgb lift = bits == 0 ? 0 : 0x010101U * ((1U << bits) - 1U);
        QHash<QRgb, uchar> places;
        QImage picture(image.size(), QImage::Format_Indexed8);
        bool fits = true;
        for (int y = 0; y < image.height() && fits; ++y) {
            const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            uchar* to = picture.scanLine(y);
            for (int x = 0; x < image.width() && fits; ++x) {
                const QRgb colour = (from[x] & kept) | lift;
                auto place = places.constFind(colour);
                if (place == places.constEnd()) {
                    fits = places.size() < 256;
                    place = places.insert(colour, static_cast<uchar>(places.size()));
                }
                to[x] = *place;
            }
        }
        if (!fits) continue;
        QList<QRgb> colours(places.size());
        for (auto place = places.cbegin(); place != places.cend(); ++place) colours[*place] = place.key();
        picture.setColorTable(colours);
        return picture;
    }
}

}  // namespace

void Tour_Failed(const QString& why) {
    std::fprintf(stderr, "%s\n", qPrintable(why));
    std::_Exit(1);
}

void Desk::Open_Report(std::string_view name) {
    const QString path = samples_ + "/" + Qt_Text(name);
    busy_ = true;
    QTimer wait;
    wait.callOnTimeout([&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible()) return;
        wait.stop();
        Find<QLineEdit>(*dialog, "fileNameEdit").setText(path);
        QTest::keyClick(&Find<QLineEdit>(*dialog, "fileNameEdit"), Qt::Key_Return);
    });
    wait.start(20);
    Trigger("mnuReportOpen");
    busy_ = false;
}

void Desk::Trigger(std::string_view name) {
    QAction& action = Find<QAction>(main_, name);
    if (!action.isEnabled()) Tour_Failed(Qt_Text(name) + " is disabled");
    action.trigger();
}

void Desk::Open_Form(FormMode mode, std::string_view item) {
    const QString open = mode == FormMode::Edit ? "mnuEditOpen" : "mnuViewOpen";
    const QString inList = "(" + Qt_Text(item) + ")";
    QAction* entry = main_.findChild<QAction*>(open + Qt_Text(item));
    for (QAction* action : main_.findChildren<QAction*>()) {
        if (entry == nullptr && action->objectName().startsWith(open) && action->text().endsWith(inList))
            entry = action;
    }
    if (entry == nullptr || !entry->isEnabled()) Tour_Failed("No menu opens " + Qt_Text(item));
    entry->trigger();
}

void Desk::Drop_Menu(std::string_view name) {
    main_.menuBar()->setActiveAction(&Find<QAction>(main_, name));
}

// Who gets a key: the pop-up, else what has the focus in the window on top.
QWidget& Desk::Focus() const {
    if (QWidget* const popup = QApplication::activePopupWidget()) return *popup;
    QWidget* const window = On_Top() == nullptr ? &main_ : On_Top();
    return window->focusWidget() == nullptr ? *window : *window->focusWidget();
}

WorksheetForm& Desk::Form() const {
    WorksheetForm* const form = main_.Forms().Active();
    if (form == nullptr) Tour_Failed("No worksheet form is open");
    return *form;
}

void Desk::Go_To(Currency line, std::string_view field) const {
    const GridModel& model = Form().Model();
    const QModelIndex cell = model.index(model.Row_Of(line), model.Column_Of(field));
    if (!cell.isValid()) Tour_Failed("No cell " + Qt_Text(field));
    Form().Grid().setCurrentIndex(cell);
    Form().Grid().setFocus();
}

void Desk::Type(std::string_view text) const {
    // Each to its own: the first may open an editor.
    for (const QChar key : Qt_Text(text)) QTest::keyClicks(&Focus(), QString(key));
}

void Desk::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(&Focus(), key, modifiers);
}

void Desk::Click(std::string_view button) const {
    QWidget* const top = On_Top();
    QTest::mouseClick(&Find<QWidget>(top == nullptr ? static_cast<const QWidget&>(Form()) : *top, button),
                      Qt::LeftButton);
}

void Desk::Rest(std::chrono::milliseconds time) {
    busy_ = true;
    QTest::qWait(static_cast<int>(time.count()));
    busy_ = false;
}

QWidget* Desk::On_Top() const {
    if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
    return QApplication::activeModalWidget();
}

void Desk::Fill(std::string_view field, std::string_view text) const {
    QWidget* const top = On_Top();
    if (top == nullptr) Tour_Failed("No dialog to fill " + Qt_Text(field));
    auto& entry = Find<QLineEdit>(*top, field);
    entry.setFocus();
    entry.setText(Qt_Text(text));
}

bool Desk::Take_Picture(const QString& path) const {
    const QImage screen = main_.screen()->grabWindow(0).toImage();
    if (screen.isNull()) return false;
    const QImage picture = With_Palette(screen);
    QImageWriter writer(path, "png");
    writer.setCompression(100);
    return writer.write(picture);
}

}  // namespace tallmar
