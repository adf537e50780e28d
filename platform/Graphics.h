#pragma once

#include <string>

#include "platform/Color.h"
#include "platform/Numbers.h"
#include "platform/Property.h"
#include "platform/Ref.h"

class Picture;
class OvalShape;
class ArcShape;
class CurveShape;

/// As a width or height in DrawPicture: that of the picture.
constexpr Int32 kOwnSize = -10000;

/// A drawing surface with antialiased edges. Coordinates are logical pixels from its top left corner; what is drawn is
/// as fine as the surface under it.
class Graphics {
  public:
    virtual ~Graphics() = default;

    virtual Int32 Width() const = 0;
    virtual Int32 Height() const = 0;

    /// The colour of later calls that draw rectangles, lines and texts.
    Property<Color> ForeColor;

    /// The font of later text calls. "System" is the desktop's interface font, "SmallSystem" the same and smaller.
    Property<std::string> TextFont = std::string("System");
    /// In pixels; 0 is the font's own default.
    Property<Int32> TextSize = 0;
    Property<bool> Bold = false;
    Property<bool> Italic = false;

    // Rectangles and lines have sharp edges. A rectangle without an extent draws nothing.
    virtual void FillRect(Int32 x, Int32 y, Int32 width, Int32 height) = 0;
    /// The outline, one pixel wide, inside of the rectangle.
    virtual void DrawRect(Int32 x, Int32 y, Int32 width, Int32 height) = 0;
    /// One pixel wide, both ends included.
    virtual void DrawLine(Int32 x1, Int32 y1, Int32 x2, Int32 y2) = 0;
    /// Back to the background of the window, or to the white of a new picture.
    virtual void ClearRect(Int32 x, Int32 y, Int32 width, Int32 height) = 0;

    /// Draws a shape with its own origin at (x, y).
    virtual void DrawObject(const OvalShape& oval, Int32 x, Int32 y) = 0;
    virtual void DrawObject(const ArcShape& arc, Int32 x, Int32 y) = 0;
    virtual void DrawObject(const CurveShape& line, Int32 x, Int32 y) = 0;

    /// Draws a part of a picture, through its mask if it has one, scaled to the destination's size. A nil picture draws
    /// nothing.
    virtual void DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32 destWidth, Int32 destHeight,
                             Int32 sourceX, Int32 sourceY, Int32 sourceWidth, Int32 sourceHeight) = 0;

    /// The width of a text on one line.
    virtual double StringWidth(const std::string& text) = 0;
    /// The height of a text that is wrapped at a width.
    virtual Int32 StringHeight(const std::string& text, Int32 wrapWidth) = 0;
    virtual Int32 TextAscent() = 0;

    /// Draws a text on one line with its baseline at y.
    virtual void DrawString(const std::string& text, Int32 x, Int32 y) = 0;
};
