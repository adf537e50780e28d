#pragma once

#include "platform/Color.h"
#include "platform/Property.h"

// Shapes are plain values: build one, hand it to Graphics::DrawObject, let it go. Lengths are in pixels, angles in
// radians; angle 0 points along +x and angles grow clockwise as seen on the screen.

/// What an oval and an arc have in common: the ellipse Width x Height, centred on the shape's origin.
class RectShape {
  public:
    Property<double> Width = 0.0;
    Property<double> Height = 0.0;
    Property<Color> FillColor;
    /// Opacity of the interior in percent.
    Property<double> Fill = 100.0;
};

/// An ellipse.
class OvalShape : public RectShape {
  public:
    Property<Color> BorderColor;
    /// Opacity of the outline in percent.
    Property<double> Border = 0.0;
    /// Width of the outline, half of which lies outside the ellipse.
    Property<double> BorderWidth = 1.0;
};

/// A pie slice of an ellipse. It begins at StartAngle and sweeps ArcAngle; a turn or more covers the whole ellipse.
class ArcShape : public RectShape {
  public:
    Property<double> StartAngle = 0.0;
    Property<double> ArcAngle = 0.0;
};

/// A straight line from (X, Y) to (X2, Y2) with flat ends, turned by Rotation about the shape's origin.
class CurveShape {
  public:
    Property<double> X = 0.0;
    Property<double> Y = 0.0;
    Property<double> X2 = 0.0;
    Property<double> Y2 = 0.0;
    Property<double> Rotation = 0.0;
    Property<Color> BorderColor;
    Property<double> BorderWidth = 1.0;
};
