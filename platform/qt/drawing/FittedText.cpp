#include "platform/qt/drawing/FittedText.h"

#include <QtGui/QFontMetricsF>
#include <algorithm>

namespace {

/// The room that a text wants when it is centred: without what is free both above and below its letters.
QSizeF RoomFor(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    const QRectF letters = metrics.tightBoundingRect(text);
    const double free = std::min(metrics.ascent() + letters.top(), metrics.descent() - letters.bottom());
    return metrics.size(0, text) - QSizeF(0, 2 * std::max(free, 0.0));
}

}  // namespace

QFont FittedFont(QFont font, const QString& text, QSizeF box, int smallestSize) {
    for (int size = font.pixelSize(); size >= smallestSize; --size) {
        font.setPixelSize(size);
        for (const int stretch : {100, 90, 80}) {
            font.setStretch(stretch);
            const QSizeF needed = RoomFor(text, font);
            if (needed.width() <= box.width() && needed.height() <= box.height()) return font;
        }
    }
    return font;
}
