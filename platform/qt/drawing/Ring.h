#pragma once

#include <QtGui/QPolygonF>
#include <array>

/// The outline of an ellipse, stroked, in four pieces without a seam between them. The rasteriser spends most of its
/// time on finding its place among the edges that cross a row; a piece has two where the whole has four.
///
/// The cuts run along `cut`.x() and `cut`.y(), which are to be near the centre and to fall between pixels.
std::array<QPolygonF, 4> RingInQuarters(const QRectF& ellipse, double lineWidth, QPointF cut, double pixelsPerUnit);
