#include "platform/qt/drawing/Styles.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>
#include <algorithm>

namespace {

constexpr int kSystemSize = 13;
constexpr int kSmallSystemSize = 11;

/// Returns the size of a centred text without the blank margin that it has both above and below its letters.
QSizeF RoomFor(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    const QRectF letters = metrics.tightBoundingRect(text);
    const double free = std::min(metrics.ascent() + letters.top(), metrics.descent() - letters.bottom());
    return metrics.size(0, text) - QSizeF(0, 2 * std::max(free, 0.0));
}

}  // namespace

QFont FontNamed(const std::string& name, int pixelSize) {
    const bool isSmall = name == "SmallSystem";
    const int defaultSize = isSmall ? kSmallSystemSize : kSystemSize;
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    if (!isSmall && name != "System") font.setFamily(ToQString(name));
    font.setPixelSize(pixelSize > 0 ? pixelSize : defaultSize);
    return font;
}

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
