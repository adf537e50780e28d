#include "platform/qt/drawing/Surfaces.h"

#include <algorithm>
#include <cmath>

#include "platform/qt/drawing/Styles.h"

namespace {

constexpr double kUnbounded = 1e6;

// Fills without antialiasing, which would half cover a surface's last row and column at a fractional scale.
void FillSharply(QPainter& painter, QRectF place, const QColor& color) {
    if (place.isEmpty()) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(place, color);
    painter.setRenderHint(QPainter::Antialiasing);
}

// Returns `place` rounded to device pixels. Unrounded, a picture would be blurred at a fractional scale.
QRect NearestPixels(const QTransform& toDevice, const QRect& place) {
    const QRectF exact = toDevice.mapRect(QRectF(place));
    return {exact.topLeft().toPoint(), exact.size().toSize()};
}

// Disables hinting, so that a text's width is proportional to its size and the same at every scale factor.
QFont FontOf(const Graphics& g) {
    QFont font = FontNamed(g.TextFont(), g.TextSize());
    font.setBold(g.Bold());
    font.setItalic(g.Italic());
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

Graphics::Graphics(std::unique_ptr<Peer> peer) : peer_(std::move(peer)) {
    peer_->painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

Graphics::~Graphics() = default;

Int32 Graphics::Width() const { return peer_->size.width(); }
Int32 Graphics::Height() const { return peer_->size.height(); }

void Graphics::FillRect(Int32 x, Int32 y, Int32 width, Int32 height) {
    FillSharply(peer_->painter, QRect(x, y, width, height), ToQColor(ForeColor()));
}

void Graphics::DrawRect(Int32 x, Int32 y, Int32 width, Int32 height) {
    if (width <= 0 || height <= 0) return;
    // The sides are computed in device pixels, so that they are equally wide at a fractional scale, too.
    const QTransform& toDevice = peer_->painter.deviceTransform();
    const QRect outer = QRectF(toDevice.mapRect(QRectF(x, y, width, height))).toRect();
    const int side = std::max(ToInt32(toDevice.m11() + 0.5), 1);
    const QRect sides[] = {{outer.left(), outer.top(), outer.width(), side},
                           {outer.left(), outer.bottom() + 1 - side, outer.width(), side},
                           {outer.left(), outer.top(), side, outer.height()},
                           {outer.right() + 1 - side, outer.top(), side, outer.height()}};
    for (const QRect& filled : sides)
        FillSharply(peer_->painter, toDevice.inverted().mapRect(QRectF(filled)), ToQColor(ForeColor()));
}

void Graphics::DrawLine(Int32 x1, Int32 y1, Int32 x2, Int32 y2) {
    // QPainter would draw a line of one pixel beside that pixel.
    if (x1 == x2 && y1 == y2) return FillRect(x1, y1, 1, 1);
    const QPointF middle(0.5, 0.5);
    peer_->painter.setRenderHint(QPainter::Antialiasing, false);
    peer_->painter.setPen({ToQColor(ForeColor()), 1, Qt::SolidLine, Qt::SquareCap});
    peer_->painter.drawLine(QPointF(x1, y1) + middle, QPointF(x2, y2) + middle);
    peer_->painter.setRenderHint(QPainter::Antialiasing);
}

void Graphics::ClearRect(Int32 x, Int32 y, Int32 width, Int32 height) {
    FillSharply(peer_->painter, QRect(x, y, width, height), peer_->background);
}

void Graphics::DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32 destWidth, Int32 destHeight,
                           Int32 sourceX, Int32 sourceY, Int32 sourceWidth, Int32 sourceHeight) {
    if (!picture) return;
    const auto size = [&picture](Int32 width, Int32 height) {
        return QSize(width == kOwnSize ? picture->Width() : width, height == kOwnSize ? picture->Height() : height);
    };
    const QRect destination({x, y}, size(destWidth, destHeight));
    const QRectF source(QPointF(sourceX, sourceY), size(sourceWidth, sourceHeight));
    // QImage::copy takes device pixels.
    const double ratio = picture->pixels().ratio;
    const QRect part = QRectF(source.topLeft() * ratio, source.size() * ratio).toRect();
    const QTransform& toDevice = peer_->painter.deviceTransform();
    const QRect pixels = NearestPixels(toDevice, destination);
    const QImage fitted =
        WithMask(*picture).copy(part).scaled(pixels.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    peer_->painter.drawImage(toDevice.inverted().mapRect(QRectF(pixels)), fitted);
}

double Graphics::StringWidth(const std::string& text) {
    return QFontMetricsF(FontOf(*this)).horizontalAdvance(ToQString(text));
}

Int32 Graphics::StringHeight(const std::string& text, Int32 wrapWidth) {
    const QRectF box(0, 0, wrapWidth, kUnbounded);
    const QRectF bounds = QFontMetricsF(FontOf(*this)).boundingRect(box, Qt::TextWordWrap, ToQString(text));
    return ToInt32(std::ceil(bounds.height()));
}

Int32 Graphics::TextAscent() { return ToInt32(std::round(QFontMetricsF(FontOf(*this)).ascent())); }

void Graphics::DrawString(const std::string& text, Int32 x, Int32 y, Int32 wrapWidth, bool condense) {
    QPainter& painter = peer_->painter;
    const QFont font = FontOf(*this);
    const QString whole = ToQString(text);
    painter.setFont(font);
    painter.setPen(ToQColor(ForeColor()));
    if (wrapWidth <= 0) return painter.drawText(QPointF(x, y), whole);
    const QFontMetricsF metrics(font);
    const QRectF box(x, y - metrics.ascent(), wrapWidth, kUnbounded);
    if (!condense) return painter.drawText(box, Qt::TextWordWrap, whole);
    painter.drawText(QPointF(x, y), metrics.elidedText(whole, Qt::ElideRight, wrapWidth));
}
