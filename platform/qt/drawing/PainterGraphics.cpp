#include "platform/qt/drawing/PainterGraphics.h"

#include <QtGui/QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/Graphics.h"
#include "platform/qt/drawing/Pixels.h"
#include "platform/qt/drawing/Styles.h"

PainterGraphics::PainterGraphics(QImage image, QSize logicalSize)
    : image_(std::move(image)), size_(logicalSize), painter_(&image_) {
    Prepare();
}

PainterGraphics::PainterGraphics(QWidget& widget)
    : size_(widget.size()), background_(widget.palette().color(QPalette::Window)), painter_(&widget) {
    Prepare();
}

void PainterGraphics::Prepare() { painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform); }

void PainterGraphics::Fill(const QImage& image) { painter_.drawImage(QRect(QPoint(), size_), image); }

// Not antialiased: at a fractional scale the surface's last row and column would be covered in part only.
void PainterGraphics::FillSharply(QRect place, const QColor& color) {
    if (place.isEmpty()) return;
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.fillRect(place, color);
    painter_.setRenderHint(QPainter::Antialiasing);
}

void PainterGraphics::FillRect(Int32 x, Int32 y, Int32 width, Int32 height) {
    FillSharply({x, y, width, height}, ToQColor(ForeColor()));
}

void PainterGraphics::DrawRect(Int32 x, Int32 y, Int32 width, Int32 height) {
    if (width <= 0 || height <= 0) return;
    // In pixels of the device, so that all four sides are equally wide at a fractional scale, too.
    const QTransform& toDevice = painter_.deviceTransform();
    const QRect outer = QRectF(toDevice.mapRect(QRectF(x, y, width, height))).toRect();
    const int side = std::max(ToInt32(toDevice.m11() + 0.5), 1);
    const QRect sides[] = {{outer.left(), outer.top(), outer.width(), side},
                           {outer.left(), outer.bottom() + 1 - side, outer.width(), side},
                           {outer.left(), outer.top(), side, outer.height()},
                           {outer.right() + 1 - side, outer.top(), side, outer.height()}};
    painter_.setRenderHint(QPainter::Antialiasing, false);
    for (const QRect& filled : sides)
        painter_.fillRect(toDevice.inverted().mapRect(QRectF(filled)), ToQColor(ForeColor()));
    painter_.setRenderHint(QPainter::Antialiasing);
}

void PainterGraphics::DrawLine(Int32 x1, Int32 y1, Int32 x2, Int32 y2) {
    const QPointF middle(0.5, 0.5);
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.setPen({ToQColor(ForeColor()), 1, Qt::SolidLine, Qt::SquareCap});
    painter_.drawLine(QPointF(x1, y1) + middle, QPointF(x2, y2) + middle);
    painter_.setRenderHint(QPainter::Antialiasing);
}

void PainterGraphics::ClearRect(Int32 x, Int32 y, Int32 width, Int32 height) {
    FillSharply({x, y, width, height}, background_);
}

void PainterGraphics::DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32 destWidth, Int32 destHeight,
                                  Int32 sourceX, Int32 sourceY, Int32 sourceWidth, Int32 sourceHeight) {
    if (!picture) return;
    const auto extent = [](Int32 given, Int32 own) { return given == kOwnSize ? own : given; };
    const QRect destination(x, y, extent(destWidth, picture->Width()), extent(destHeight, picture->Height()));
    const QRectF source(sourceX, sourceY, extent(sourceWidth, picture->Width()),
                        extent(sourceHeight, picture->Height()));
    // The source is counted in the image's own pixels.
    const double ratio = picture->pixels().Ratio();
    painter_.drawImage(destination, Composed(*picture), QRectF(source.topLeft() * ratio, source.size() * ratio));
}

// Not hinted, so that a text's width grows evenly with its size and is the same at every scale factor.
QFont PainterGraphics::Font() const {
    QFont font = FontNamed(TextFont(), TextSize());
    font.setBold(Bold());
    font.setItalic(Italic());
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double PainterGraphics::StringWidth(const std::string& text) {
    return QFontMetricsF(Font()).horizontalAdvance(QString::fromStdString(text));
}

Int32 PainterGraphics::StringHeight(const std::string& text, Int32 wrapWidth) {
    constexpr double kUnbounded = 1e6;
    const QRectF box(0, 0, wrapWidth, kUnbounded);
    return ToInt32(
        std::ceil(QFontMetricsF(Font()).boundingRect(box, Qt::TextWordWrap, QString::fromStdString(text)).height()));
}

Int32 PainterGraphics::TextAscent() { return ToInt32(std::round(QFontMetricsF(Font()).ascent())); }

void PainterGraphics::DrawString(const std::string& text, Int32 x, Int32 y) {
    painter_.setFont(Font());
    painter_.setPen(ToQColor(ForeColor()));
    painter_.drawText(QPointF(x, y), QString::fromStdString(text));
}
