#include "platform/qt/drawing/Fonts.h"

#include <QtGui/QFontDatabase>

namespace {

constexpr int kSystemSize = 13;
constexpr int kSmallSystemSize = 11;

}  // namespace

QFont FontNamed(const std::string& name, int pixelSize) {
    const bool isSmall = name == "SmallSystem";
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    if (!isSmall && name != "System") font.setFamily(QString::fromStdString(name));
    font.setPixelSize(pixelSize > 0 ? pixelSize : isSmall ? kSmallSystemSize : kSystemSize);
    return font;
}
