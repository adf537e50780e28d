#pragma once

#include <functional>
#include <string>

#include "platform/Canvas.h"
#include "platform/Color.h"

class Picture;

/// A bevelled button whose centre is a swatch of the selected colour. A click opens the desktop's colour
/// picker; a press on the swatch with Ctrl, Alt or Shift held drags the colour away as the text "#RRGGBB";
/// such a text dropped on the well sets the colour. ColorChange tells its owner of each change.
class SmartColorWell : public Canvas {
  public:
    /// Raised with the new colour after every change, whoever made it, and after every confirmed pick.
    std::function<void(Color)> ColorChange;
    /// Raised at the end of each press, wherever the pointer is then.
    std::function<void(Int32 x, Int32 y)> MouseUp;

    Color ColorSelected;
    /// The prompt of the colour picker; set when the control opens.
    std::string PickerPromptText;
    /// Distance of the swatch from the control's edge in pixels. 0 becomes 2 or 5 when the control opens.
    Int32 Margin = 0;
    /// A dimmed well dims its swatch as well.
    bool AlsoDimColor = false;
    /// A press on the swatch can drag without a modifier key.
    bool EnableColorDrag = false;

    void Event_DropObject(const Ref<DragItem>& object, Int32 action) override;
    void Event_MouseUp(Int32 x, Int32 y) override;
    void Event_MouseDrag(Int32 x, Int32 y) override;
    void Event_Open() override;
    bool Event_MouseDown(Int32 x, Int32 y) override;
    void Event_Paint(const Ref<::Graphics>& g) override;

    /// Sets the colour; nothing happens if it is the present one.
    void setColor(Color c);
    Color getColor() const { return ColorSelected; }
    /// Lets the user pick the colour and waits.
    void pickColor();
    /// "#" and six hexadecimal digits: red, green, blue.
    std::string getColorAsHexString() const;
    /// Sets the colour from a text as getColorAsHexString writes it, with or without the "#", in either case.
    /// Any other text gives the colour of the hexadecimal number with which it begins, or black. The text of
    /// the last call does nothing, unless the colour has been changed in another way since.
    void setColorFromHexString(const std::string& text);

  protected:
    /// Draws the whole control, at any moment.
    void draw();

    Color integer2Color(Int32 n) const;
    /// Whether a point is on the swatch, or up to a pixel to the right of it or below it.
    bool withinColorBox(Int32 x, Int32 y) const;
    bool withinControl(Int32 x, Int32 y) const;

    /// Whether the button is shown pressed.
    bool mouseDownAndWithin = false;
    /// Where the press began.
    Int32 mouseDownX = 0, mouseDownY = 0;
    /// Whether the press may become a drag of the colour, and whether it has become one.
    bool mouseDownWithinColorBox = false;
    bool draggedColorBox = false;
    /// By how many pixels the drawing is narrower and lower than the control.
    Int32 cShrink = 0;
    /// The latest text given to setColorFromHexString; "?" if the colour has changed in another way since.
    std::string lastColorAsHexString;
    /// Whether the colour picker is open.
    bool pickingColor = false;

  private:
    void drawBevel(::Graphics& g) const;
    void drawSwatch(::Graphics& g) const;
    void fillSwatch(::Graphics& g) const;
    void dim(Picture& look) const;
    void showPressed(bool on);
    void dragColor(Int32 x, Int32 y);
    /// Tells a screen reader and the owner of a change.
    void tellChange();
};
