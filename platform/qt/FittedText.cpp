#include "platform/qt/FittedText.h"

#include <QtGui/QFontMetricsF>

QFont FittedFont(QFont font, const QString& text, QSizeF box, int smallestSize) {
    for (int size = font.pixelSize(); size >= smallestSize; --size) {
        font.setPixelSize(size);
        for (const int stretch : {100, 90, 80}) {
            font.setStretch(stretch);
            const QSizeF needed = QFontMetricsF(font).size(0, text);
            if (needed.width() <= box.width() && needed.height() <= box.height()) return font;
        }
    }
    return font;
}
