#include "platform/qt/drawing/Ring.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using std::numbers::pi;

/// One edge of the ring.
class Edge {
  public:
    Edge(QPointF centre, double radiusX, double radiusY, QPointF cut)
        : centre_(centre), radiusX_(radiusX), radiusY_(radiusY), offset_(cut - centre) {}

    /// Where the quarter of that number begins, from the right by way of the bottom.
    double Begin(int quarter) const {
        const double sideways = Angle(offset_.x(), radiusX_);
        const double upright = Angle(offset_.y(), radiusY_);
        const double beyond[] = {upright, -sideways, -upright, sideways};
        return quarter * pi / 2 + beyond[quarter % 4];
    }

    /// Appends the points from one angle to another.
    void AppendTo(QPolygonF& polygon, double from, double to, double step) const {
        const int steps = std::max(static_cast<int>(std::ceil(std::abs(to - from) / step)), 1);
        for (int i = 0; i <= steps; ++i) {
            const double angle = from + (to - from) * i / steps;
            polygon << centre_ + QPointF(std::cos(angle) * radiusX_, std::sin(angle) * radiusY_);
        }
    }

  private:
    static double Angle(double offset, double radius) { return std::asin(std::clamp(offset / radius, -1.0, 1.0)); }

    QPointF centre_;
    double radiusX_;
    double radiusY_;
    QPointF offset_;
};

/// The angle that may be cut short by a straight line: nowhere does that move the edge by more than a part of a pixel.
double Step(double radiusInPixels) {
    constexpr double kDeviation = 0.05;
    return 2 * std::acos(1 - std::min(kDeviation / radiusInPixels, 1.0));
}

}  // namespace

std::array<QPolygonF, 4> RingInQuarters(const QRectF& ellipse, double lineWidth, QPointF cut, double pixelsPerUnit) {
    const double radiusX = ellipse.width() / 2;
    const double radiusY = ellipse.height() / 2;
    const double half = lineWidth / 2;
    const Edge outer(ellipse.center(), radiusX + half, radiusY + half, cut);
    constexpr double kPoint = 1e-3;  // where the line is so wide that no hole is left
    const Edge inner(ellipse.center(), std::max(radiusX - half, kPoint), std::max(radiusY - half, kPoint), cut);
    const double step = Step((std::max(radiusX, radiusY) + half) * pixelsPerUnit);
    std::array<QPolygonF, 4> quarters;
    for (int i = 0; i < 4; ++i) {
        QPolygonF& quarter = quarters[static_cast<std::size_t>(i)];
        outer.AppendTo(quarter, outer.Begin(i), outer.Begin(i + 1), step);
        inner.AppendTo(quarter, inner.Begin(i + 1), inner.Begin(i), step);
    }
    return quarters;
}
