#include "platform/qt/drawing/Surfaces.h"

#include <QtGui/QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/qt/drawing/Styles.h"

namespace {

using std::numbers::pi;

/// The outer or the inner edge of a stroked ellipse.
class Edge {
  public:
    Edge(QPointF centre, QSizeF radii, QPointF cut) : centre_(centre), radii_(radii), offset_(cut - centre) {}

    /// Returns the angle at which a quarter begins. Quarter 0 is the lower right one; numbers go clockwise.
    double Begin(int quarter) const {
        const double sideways = Angle(offset_.x(), radii_.width());
        const double upright = Angle(offset_.y(), radii_.height());
        const double beyond[] = {upright, -sideways, -upright, sideways};
        return quarter * pi / 2 + beyond[quarter % 4];
    }

    /// Appends points of the edge from one angle to another, `step` radians apart at most.
    void AppendTo(QPolygonF& polygon, double from, double to, double step) const {
        const int steps = std::max(ToInt32(std::ceil(std::abs(to - from) / step)), 1);
        for (int i = 0; i <= steps; ++i) {
            const double angle = from + (to - from) * i / steps;
            polygon << centre_ + QPointF(std::cos(angle) * radii_.width(), std::sin(angle) * radii_.height());
        }
    }

  private:
    static double Angle(double offset, double radius) { return std::asin(std::clamp(offset / radius, -1.0, 1.0)); }

    QPointF centre_;
    QSizeF radii_;
    QPointF offset_;
};

/// Returns the angle of an arc that a line can replace with an error of at most kDeviation device pixels.
double Step(double radiusInPixels) {
    constexpr double kDeviation = 0.05;
    constexpr double kSmallest = 1e-4;  // so that a huge ellipse doesn't fill the memory with points
    return std::max(2 * std::acos(1 - std::min(kDeviation / radiusInPixels, 1.0)), kSmallest);
}

/// Draws the outline of an ellipse as four seamless quarters. The rasteriser's cost grows with the number of
/// edges that cross a row: two of a quarter, but four of the whole ring.
void StrokeEllipse(QPainter& painter, const QRectF& ellipse, double lineWidth) {
    const QTransform& toDevice = painter.deviceTransform();
    const QPointF centre = ellipse.center();
    // The quarters meet at `cut`, which is near the centre and on a pixel boundary, so that no seam shows.
    const QPointF cut = toDevice.inverted().map(QPointF(toDevice.map(centre).toPoint()));
    const QSizeF half(lineWidth / 2, lineWidth / 2);
    const QSizeF outerRadii = ellipse.size() / 2 + half;
    const QSizeF innerRadii = ellipse.size() / 2 - half;
    constexpr QSizeF kPoint(1e-3, 1e-3);  // the inner radii if the line is too wide to leave a hole
    const Edge outer(centre, outerRadii, cut);
    const Edge inner(centre, innerRadii.expandedTo(kPoint), cut);
    const double step = Step(std::max(outerRadii.width(), outerRadii.height()) * toDevice.m11());
    for (int i = 0; i < 4; ++i) {
        QPolygonF quarter;
        outer.AppendTo(quarter, outer.Begin(i), outer.Begin(i + 1), step);
        inner.AppendTo(quarter, inner.Begin(i + 1), inner.Begin(i), step);
        painter.drawPolygon(quarter);
    }
}

QColor Translucent(Color color, double opacityPercent) {
    QColor result = ToQColor(color);
    result.setAlphaF(static_cast<float>(opacityPercent / 100));
    return result;
}

QRectF BoundsOf(const RectShape& shape, Int32 x, Int32 y) {
    return {x - shape.Width() / 2, y - shape.Height() / 2, shape.Width(), shape.Height()};
}

}  // namespace

void Graphics::DrawObject(const OvalShape& oval, Int32 x, Int32 y) {
    QPainter& painter = peer_->painter;
    const QRectF ellipse = BoundsOf(oval, x, y);
    painter.setPen(Qt::NoPen);
    if (oval.Fill() > 0) {
        painter.setBrush(Translucent(oval.FillColor(), oval.Fill()));
        painter.drawEllipse(ellipse);
    }
    if (oval.Border() > 0) {
        painter.setBrush(Translucent(oval.BorderColor(), oval.Border()));
        StrokeEllipse(painter, ellipse, oval.BorderWidth());
    }
}

void Graphics::DrawObject(const ArcShape& arc, Int32 x, Int32 y) {
    QPainter& painter = peer_->painter;
    constexpr double kTurn = 2 * pi;
    const QRectF ellipse = BoundsOf(arc, x, y);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Translucent(arc.FillColor(), arc.Fill()));
    if (std::abs(arc.ArcAngle()) >= kTurn) return painter.drawEllipse(ellipse);
    // drawPie takes angles in 1/16 degree, which is too coarse: one second of the count-down is 1/10 degree.
    const auto degrees = [](double radians) { return -radians * 360 / kTurn; };
    QPainterPath slice(ellipse.center());
    slice.arcTo(ellipse, degrees(arc.StartAngle()), degrees(arc.ArcAngle()));
    slice.closeSubpath();
    painter.drawPath(slice);
}

void Graphics::DrawObject(const CurveShape& line, Int32 x, Int32 y) {
    QPainter& painter = peer_->painter;
    const double cosine = std::cos(line.Rotation());
    const double sine = std::sin(line.Rotation());
    const auto turned = [&](double px, double py) {
        return QPointF(x + px * cosine - py * sine, y + px * sine + py * cosine);
    };
    painter.setPen({ToQColor(line.BorderColor()), line.BorderWidth(), Qt::SolidLine, Qt::FlatCap});
    painter.drawLine(turned(line.X(), line.Y()), turned(line.X2(), line.Y2()));
}
