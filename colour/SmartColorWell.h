#pragma once

#include <functional>
#include <string>

#include "platform/Canvas.h"
#include "platform/Color.h"

class Picture;

/// A bevelled button whose centre is a swatch of the selected colour. A click opens the desktop's colour
/// picker. Dragging the swatch with Ctrl, Alt or Shift held drags the colour as the text "#RRGGBB", and
/// dropping such a text on the well sets the colour. ColorChange notifies the owner of each change.
class SmartColorWell : public Canvas {
  public:
    /// Called with the new colour after every change, even by the program, and after every confirmed pick.
    std::function<void(Color)> ColorChange;
    /// Called at the end of each press, even if the pointer has left the control.
    std::function<void(Int32 x, Int32 y)> MouseUp;

    Color ColorSelected;
    /// The prompt of the colour picker. Event_Open sets it.
    std::string PickerPromptText;
    /// The distance between the swatch and the edge, in pixels. Event_Open replaces 0 by 2 or 5.
    Int32 Margin = 0;
    /// Whether a disabled well also dims its swatch while the window is active.
    bool AlsoDimColor = false;
    /// Whether the swatch can be dragged without a modifier key.
    bool EnableColorDrag = false;

    void Event_DropObject(const Ref<DragItem>& object, Int32 action) override;
    void Event_MouseUp(Int32 x, Int32 y) override;
    void Event_MouseDrag(Int32 x, Int32 y) override;
    void Event_Open() override;
    bool Event_MouseDown(Int32 x, Int32 y) override;
    void Event_Paint(const Ref<::Graphics>& g) override;

    /// Sets the colour. Does nothing if the colour is already selected.
    void setColor(Color c);
    Color getColor() const { return ColorSelected; }
    /// Opens the colour picker and returns when it has closed.
    void pickColor();
    /// Returns "#" and six hexadecimal digits: red, green, blue.
    std::string getColorAsHexString() const;
    /// Sets the colour from a text such as getColorAsHexString returns, with or without "#", in either case.
    /// Any other text stands for the hexadecimal number at its start or, without one, for black. Does nothing
    /// if `text` equals that of the previous call and the colour wasn't changed in another way since.
    void setColorFromHexString(const std::string& text);

  protected:
    /// Draws the whole control. May be called outside Event_Paint.
    void draw();

    Color integer2Color(Int32 n) const;
    /// Returns whether a point is on the swatch, or up to a pixel to the right of it or below it.
    bool withinColorBox(Int32 x, Int32 y) const;
    bool withinControl(Int32 x, Int32 y) const;

    /// Whether the button is shown pressed.
    bool mouseDownAndWithin = false;
    /// The position at which the button was pressed.
    Int32 mouseDownX = 0, mouseDownY = 0;
    /// Whether the press may become a drag of the colour, and whether it has become one.
    bool mouseDownWithinColorBox = false;
    bool draggedColorBox = false;
    /// The difference in width and height between the control and its drawing, in pixels.
    Int32 cShrink = 0;
    /// The latest argument of setColorFromHexString, or "?" if the colour was since changed in another way.
    std::string lastColorAsHexString;
    bool pickingColor = false;

  private:
    void drawBevel(::Graphics& g) const;
    void drawSwatch(::Graphics& g) const;
    void fillSwatch(::Graphics& g) const;
    void dim(Picture& look) const;
    void showPressed(bool on);
    void dragColor(Int32 x, Int32 y);
    /// Notifies screen readers and the owner of a change.
    void tellChange();
};
