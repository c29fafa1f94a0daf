#include "shell/logo.h"

#include <QGuiApplication>
#include <QPainter>
#include <algorithm>

namespace tallmar {

namespace {

// On a page of 64 by 64.
constexpr qreal kPage = 64, kCorner = 12;
constexpr QRectF kLetter[] = {{12, 14, 40, 8}, {17, 14, 8, 38}};
constexpr QRectF kAmounts[] = {{32, 30, 12, 4}, {32, 38, 20, 4}, {32, 46, 16, 4}};
constexpr float kAmountsOpacity = 0.65F;

}  // namespace

QPixmap Logo(QSize size, const QPalette& palette) {
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap((QSizeF(size) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);

    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const qreal side = std::min(size.width(), size.height());
    painter.translate((size.width() - side) / 2, (size.height() - side) / 2);
    painter.scale(side / kPage, side / kPage);
    painter.setBrush(palette.color(QPalette::Active, QPalette::Highlight));
    painter.drawRoundedRect(QRectF(0, 0, kPage, kPage), kCorner, kCorner);
    QColor ink = palette.color(QPalette::Active, QPalette::HighlightedText);
    painter.setBrush(ink);
    for (const QRectF& bar : kLetter) painter.drawRect(bar);
    ink.setAlphaF(kAmountsOpacity);
    painter.setBrush(ink);
    for (const QRectF& bar : kAmounts) painter.drawRect(bar);
    return pixmap;
}

}  // namespace tallmar
