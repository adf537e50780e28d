#pragma once

#include "platform/Color.h"
#include "platform/Ref.h"

class Picture;

// Shapes are plain values that DrawObject doesn't keep. Lengths are in logical pixels, angles in radians.
// Angle 0 points along +x, and angles grow clockwise as seen on the screen.

/// The base class of ovals and arcs: an ellipse of Width x Height, centred on the shape's origin.
class RectShape {
  public:
    Property<double> Width = 0.0;
    Property<double> Height = 0.0;
    Property<Color> FillColor;
    Property<double> Fill = 100.0;  ///< opacity of the interior in percent
};

class OvalShape : public RectShape {
  public:
    Property<Color> BorderColor;
    Property<double> Border = 0.0;       ///< opacity of the outline in percent
    Property<double> BorderWidth = 1.0;  ///< half of it lies outside the ellipse
};

/// A pie slice that begins at StartAngle and spans ArcAngle. A span of 2 pi or more covers the whole ellipse.
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

/// An argument of DrawPicture that stands for the picture's own width or height.
constexpr Int32 kOwnSize = -10000;

/// A drawing surface with the device's full resolution. Coordinates are logical pixels from the top left.
class Graphics {
  public:
    struct Peer;
    explicit Graphics(std::unique_ptr<Peer> peer);
    ~Graphics();

    Int32 Width() const;
    Int32 Height() const;

    /// The colour of rectangles, lines and texts that are drawn from now on.
    Property<Color> ForeColor;

    /// The font for texts: "System" (the desktop's interface font), "SmallSystem" (smaller) or a font family.
    Property<std::string> TextFont = std::string("System");
    Property<Int32> TextSize = 0;  ///< in logical pixels; 0 is the font's default size
    Property<bool> Bold = false;
    Property<bool> Italic = false;

    // Rectangles and lines aren't antialiased. Rectangles whose width or height is 0 or less aren't drawn.
    void FillRect(Int32 x, Int32 y, Int32 width, Int32 height);
    /// Draws an outline, one logical pixel wide, along the inside of the rectangle's edges.
    void DrawRect(Int32 x, Int32 y, Int32 width, Int32 height);
    /// Draws a line, one logical pixel wide, that includes both end points.
    void DrawLine(Int32 x1, Int32 y1, Int32 x2, Int32 y2);
    /// Fills a rectangle with the background of the window or, on a picture, with white.
    void ClearRect(Int32 x, Int32 y, Int32 width, Int32 height);

    /// Draws a shape with its origin at (x, y).
    void DrawObject(const OvalShape& oval, Int32 x, Int32 y);
    void DrawObject(const ArcShape& arc, Int32 x, Int32 y);
    void DrawObject(const CurveShape& line, Int32 x, Int32 y);

    /// Draws the source part of a picture through its mask, scaled to the destination. Nil draws nothing.
    void DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32 destWidth = kOwnSize,
                     Int32 destHeight = kOwnSize, Int32 sourceX = 0, Int32 sourceY = 0, Int32 sourceWidth = kOwnSize,
                     Int32 sourceHeight = kOwnSize);

    /// Returns the width of a text on one line.
    double StringWidth(const std::string& text);
    /// Returns the height of a text that is wrapped at `wrapWidth`.
    Int32 StringHeight(const std::string& text, Int32 wrapWidth);
    Int32 TextAscent();

    /// Draws a text from `x` on with its first baseline at `y`, wrapped at a width of `wrapWidth` or, if
    /// `condense` is set, truncated there with an ellipsis. A `wrapWidth` of 0 means no limit.
    void DrawString(const std::string& text, Int32 x, Int32 y, Int32 wrapWidth = 0, bool condense = false);

    /// Only for use within platform/.
    Peer& peer() { return *peer_; }

  private:
    std::unique_ptr<Peer> peer_;
};
