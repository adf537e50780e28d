#pragma once

#include "platform/Color.h"
#include "platform/Ref.h"

class Picture;

// Shapes are plain values: build one, hand it to Graphics::DrawObject, let it go. Lengths are in pixels,
// angles in radians; angle 0 points along +x and angles grow clockwise as seen on the screen.

/// The common part of ovals and arcs: the ellipse Width x Height, centred on the shape's origin.
class RectShape {
  public:
    Property<double> Width = 0.0;
    Property<double> Height = 0.0;
    Property<Color> FillColor;
    Property<double> Fill = 100.0;  ///< opacity of the interior in percent
};

/// An ellipse.
class OvalShape : public RectShape {
  public:
    Property<Color> BorderColor;
    Property<double> Border = 0.0;       ///< opacity of the outline in percent
    Property<double> BorderWidth = 1.0;  ///< half of it lies outside the ellipse
};

/// A pie slice from StartAngle over ArcAngle. A turn or more covers the whole ellipse.
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

/// Stands for the picture's own width or height in DrawPicture.
constexpr Int32 kOwnSize = -10000;

/// A drawing surface. Coordinates are logical pixels from the top left; all pixels of the device are used.
class Graphics {
  public:
    struct Peer;
    explicit Graphics(std::unique_ptr<Peer> peer);
    ~Graphics();

    Int32 Width() const;
    Int32 Height() const;

    /// The colour in which later calls draw rectangles, lines and texts.
    Property<Color> ForeColor;

    /// The font of later texts: "System", the desktop's interface font, "SmallSystem" or a font family.
    Property<std::string> TextFont = std::string("System");
    Property<Int32> TextSize = 0;  ///< in pixels; 0 is the default of the font's name
    Property<bool> Bold = false;
    Property<bool> Italic = false;

    // Rectangles and lines have sharp edges. Nothing is drawn if a width or height isn't above 0.
    void FillRect(Int32 x, Int32 y, Int32 width, Int32 height);
    /// The outline, one pixel wide, inside of the rectangle.
    void DrawRect(Int32 x, Int32 y, Int32 width, Int32 height);
    /// One pixel wide, both ends included.
    void DrawLine(Int32 x1, Int32 y1, Int32 x2, Int32 y2);
    /// Fills a rectangle with the background of the window or, on a picture, with white.
    void ClearRect(Int32 x, Int32 y, Int32 width, Int32 height);

    /// Draws a shape with its own origin at (x, y).
    void DrawObject(const OvalShape& oval, Int32 x, Int32 y);
    void DrawObject(const ArcShape& arc, Int32 x, Int32 y);
    void DrawObject(const CurveShape& line, Int32 x, Int32 y);

    /// Draws a part of a picture through its mask, scaled to the destination's size. Nil draws nothing.
    void DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32 destWidth = kOwnSize,
                     Int32 destHeight = kOwnSize, Int32 sourceX = 0, Int32 sourceY = 0, Int32 sourceWidth = kOwnSize,
                     Int32 sourceHeight = kOwnSize);

    /// The width of a text on one line.
    double StringWidth(const std::string& text);
    /// The height of a text that is wrapped at a width.
    Int32 StringHeight(const std::string& text, Int32 wrapWidth);
    Int32 TextAscent();

    /// Draws a text with its first baseline at y. It is wrapped at `wrapWidth` pixels or, if `condense`,
    /// truncated there with an ellipsis. A `wrapWidth` of 0 is no limit.
    void DrawString(const std::string& text, Int32 x, Int32 y, Int32 wrapWidth = 0, bool condense = false);

    /// For the toolkit's own use.
    Peer& peer() { return *peer_; }

  private:
    std::unique_ptr<Peer> peer_;
};
