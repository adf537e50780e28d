#pragma once

#include <memory>
#include <string>

#include "platform/Color.h"
#include "platform/Ref.h"
#include "platform/Values.h"

class Picture;

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

/// As a width or height in DrawPicture: that of the picture.
constexpr Int32 kOwnSize = -10000;

/// A drawing surface. Coordinates are logical pixels from the top left; what is drawn is as fine as what lies under it.
class Graphics {
  public:
    struct Peer;
    explicit Graphics(std::unique_ptr<Peer> peer);
    ~Graphics();

    Int32 Width() const;
    Int32 Height() const;

    /// The colour of later calls that draw rectangles, lines and texts.
    Property<Color> ForeColor;

    /// The font of later text calls. "System" is the desktop's interface font, "SmallSystem" the same and smaller.
    Property<std::string> TextFont = std::string("System");
    /// In pixels; 0 is the font's own default.
    Property<Int32> TextSize = 0;
    Property<bool> Bold = false;
    Property<bool> Italic = false;

    // Rectangles and lines have sharp edges. A rectangle without an extent draws nothing.
    void FillRect(Int32 x, Int32 y, Int32 width, Int32 height);
    /// The outline, one pixel wide, inside of the rectangle.
    void DrawRect(Int32 x, Int32 y, Int32 width, Int32 height);
    /// One pixel wide, both ends included.
    void DrawLine(Int32 x1, Int32 y1, Int32 x2, Int32 y2);
    /// Back to the background of the window, or to the white of a new picture.
    void ClearRect(Int32 x, Int32 y, Int32 width, Int32 height);

    /// Draws a shape with its own origin at (x, y).
    void DrawObject(const OvalShape& oval, Int32 x, Int32 y);
    void DrawObject(const ArcShape& arc, Int32 x, Int32 y);
    void DrawObject(const CurveShape& line, Int32 x, Int32 y);

    /// Draws a part of a picture through its mask, if any, scaled to the destination's size. Nil draws nothing.
    void DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32 destWidth, Int32 destHeight, Int32 sourceX,
                     Int32 sourceY, Int32 sourceWidth, Int32 sourceHeight);

    /// The width of a text on one line.
    double StringWidth(const std::string& text);
    /// The height of a text that is wrapped at a width.
    Int32 StringHeight(const std::string& text, Int32 wrapWidth);
    Int32 TextAscent();

    /// Draws a text with its first baseline at y, wrapped at a width of `wrapWidth` pixels or, if `condense`, cut to
    /// one line of that width that ends in an ellipsis. With a `wrapWidth` of 0 it is one line of any width.
    void DrawString(const std::string& text, Int32 x, Int32 y, Int32 wrapWidth = 0, bool condense = false);

    /// For the toolkit's own use.
    Peer& peer() { return *peer_; }

  private:
    std::unique_ptr<Peer> peer_;
};
