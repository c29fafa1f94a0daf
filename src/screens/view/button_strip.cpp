#include "screens/view/button_strip.h"

#include <QPushButton>
#include <algorithm>

namespace tallmar {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kEditStrip = 7620, kViewStrip = 6810;
constexpr int kButtonWidth = 1210, kButtonHeight = 480, kGap = 160;
constexpr int kSideMargin = 240, kTopMargin = 120;

QList<QPushButton*> Shown_Buttons(const QWidget& strip) {
    QList<QPushButton*> buttons = strip.findChildren<QPushButton*>(Qt::FindDirectChildrenOnly);
    buttons.removeIf([](const QPushButton* button) { return button->isHidden(); });
    return buttons;
}

// All buttons are of one size, and no caption is cut.
struct Measures {
    int width, height, gap, side, top;

    explicit Measures(const QWidget& strip) {
        const auto across = [&](int twips) { return twips * strip.logicalDpiX() / kTwipsPerInch; };
        const auto down = [&](int twips) { return twips * strip.logicalDpiY() / kTwipsPerInch; };
        width = across(kButtonWidth);
        height = down(kButtonHeight);
        gap = across(kGap);
        side = across(kSideMargin);
        top = down(kTopMargin);
        for (const QPushButton* button : Shown_Buttons(strip)) {
            width = std::max(width, button->sizeHint().width());
            height = std::max(height, button->sizeHint().height());
        }
    }
    int Row(int buttons) const { return 2 * side + buttons * width + (buttons - 1) * gap; }
};

int Strip_Width(const QWidget& strip, int twips) {
    const Measures size(strip);
    return std::max(twips * strip.logicalDpiX() / kTwipsPerInch, size.Row(int(Shown_Buttons(strip).size())));
}

void Layout_Buttons(QWidget& strip, int twips, int width) {
    const Measures size(strip);
    const QList<QPushButton*> buttons = Shown_Buttons(strip);
    const int count = int(buttons.size());
    int inRow = count;
    if (width < Strip_Width(strip, twips)) {
        inRow = std::max(1, (count + 1) / 2);
        while (inRow > 1 && size.Row(inRow) > width) --inRow;
    }
    for (int i = 0; i < count; ++i) {
        buttons[i]->setGeometry(size.side + i % inRow * (size.width + size.gap),
                                size.top + i / inRow * (size.height + size.top), size.width, size.height);
    }
    const int rows = count == 0 ? 0 : (count + inRow - 1) / inRow;
    strip.setFixedHeight(size.top + rows * (size.height + size.top));
}

}  // namespace

void Layout_Edit_Buttons(QWidget& picButtons, int width) {
    Layout_Buttons(picButtons, kEditStrip, width);
}

void Layout_View_Buttons(QWidget& picButtons, int width) {
    Layout_Buttons(picButtons, kViewStrip, width);
}

int Edit_Strip_Width(const QWidget& picButtons) {
    return Strip_Width(picButtons, kEditStrip);
}

int View_Strip_Width(const QWidget& picButtons) {
    return Strip_Width(picButtons, kViewStrip);
}

}  // namespace tallmar
