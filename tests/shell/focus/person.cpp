#include "shell/focus/person.h"

#include <QAbstractButton>
#include <QWindow>

#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr int kWait = 10000;  // milliseconds for what must come
constexpr int kAgain = 200;   // for what is tried again
constexpr int kTries = 20;
constexpr const char* kShift = "Shift_L";

void Click_Middle(const QWidget& widget, const QRect& part) {
    const QPoint at = widget.mapToGlobal(part.center());
    The_Screen().Click(at.x(), at.y());
}

// The program believes it somewhat earlier than the window system does it.
bool Gets_Keys(const QWidget& window) {
    return window.isActiveWindow() && The_Screen().Focused() == window.effectiveWinId();
}

std::string Told(const QWidget* widget) {
    if (widget == nullptr) return "nothing";
    return std::string(widget->metaObject()->className()) + " " + Plain_Text(widget->objectName());
}

}  // namespace

Person::Person(const FiscalYear& year) : desk(year) {
    qApp->installEventFilter(this);
    desk.boxes.Otherwise([this](QWidget& box) { return Answer_Box(box); });
}

Person::~Person() {
    qApp->removeEventFilter(this);
}

bool Person::eventFilter(QObject* watched, QEvent* event) {
    // The window gets it before its widgets do.
    if (watched->isWindowType() && event->type() == QEvent::KeyRelease) ++released_;
    return false;
}

void Person::Wait_For_Keys(int keys) {
    // A key that opens a box may be released while no window has the keyboard.
    const std::size_t boxes = boxes_.size();
    const auto came = [&] { return released_ >= keys || boxes_.size() > boxes; };
    EXPECT_TRUE(QTest::qWaitFor(came, kWait)) << "a key went nowhere";
}

void Person::Press(const char* key, const char* held) {
    const int keys = released_ + (*held == '\0' ? 1 : 2);
    The_Screen().Press(key, held);
    Wait_For_Keys(keys);
}

void Person::Type(std::string_view text) {
    const int keys = released_ + static_cast<int>(text.size());
    for (const char character : text) The_Screen().Type(character);
    Wait_For_Keys(keys);
}

void Person::Click(const LineRef& line, const ColumnRef& column) {
    GridView& grd = desk.Form().Grid();
    const QModelIndex at = desk.Index(line, column);
    grd.scrollTo(at);
    Click_Middle(*grd.viewport(), grd.visualRect(at));
    EXPECT_TRUE(QTest::qWaitFor([&] { return grd.currentIndex() == at; }, kWait));
}

bool Person::Answer_Box(QWidget& box) {
    boxes_.push_back(Plain_Text(box.windowTitle()));
    if (!QTest::qWaitFor([&] { return Gets_Keys(box); }, kWait)) return false;
    const QPointer<QWidget> open(&box);
    const auto closed = [&] { return open == nullptr || !open->isVisible(); };
    QAbstractButton* button = Button_Of(box, answer_);
    if (button == nullptr) {
        The_Screen().Press("Escape");
        return QTest::qWaitFor(closed, kWait);
    }
    if (by_ == AnswerBy::Click) {
        // Until the window manager has put it where it stays.
        for (int i = 0; i < kTries && !closed(); ++i) {
            Click_Middle(*button, button->rect());
            (void)QTest::qWaitFor(closed, kAgain);
        }
        return closed();
    }
    for (int i = 0; i < kTries && QApplication::focusWidget() != button; ++i) Press("Tab");
    The_Screen().Press("Return");
    return QTest::qWaitFor(closed, kWait);
}

testing::AssertionResult Person::Has_Keyboard(const QWidget& widget) {
    const auto has = [&] { return QApplication::focusWidget() == &widget; };
    if (QTest::qWaitFor([&] { return Gets_Keys(*desk.main); }, kWait) && QTest::qWaitFor(has, kAgain)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "the keyboard is in " << Told(QApplication::focusWidget()) << " of "
                                       << Told(QApplication::activeWindow()) << ", not in " << Told(&widget);
}

testing::AssertionResult Person::Is_At(const LineRef& line, const ColumnRef& column) {
    const testing::AssertionResult has = Has_Keyboard(desk.Form().Grid());
    if (!has) return has;
    if (desk.Form().Grid().currentIndex() == desk.Index(line, column)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the cursor is at " << desk.Cursor();
}

}  // namespace tallmar
