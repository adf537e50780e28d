#pragma once

#include <functional>
#include <string>

#include "platform/Canvas.h"
#include "platform/Color.h"

class Picture;

/// A bevelled button whose centre is a swatch of the selected colour. A click opens the desktop's colour picker; a
/// press on the swatch with Ctrl, Alt or Shift held drags the colour away as the text "#RRGGBB"; such a text dropped on
/// the well sets the colour. Its owner hears of each change by ColorChange.
class SmartColorWell : public Canvas {
  public:
    /// Raised with the new colour when it was changed by whomever, and after each confirmed pick.
    std::function<void(Color)> ColorChange;
    /// The end of each press.
    std::function<void(Int32 x, Int32 y)> MouseUp;

    Color ColorSelected;
    /// The prompt of the colour picker; set when the control opens.
    std::string PickerPromptText;
    /// Distance of the swatch from the control's edge. When the control opens, 0 becomes what suits its height.
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

    /// Takes a colour that differs from the present one.
    void setColor(Color c);
    Color getColor() const { return ColorSelected; }
    /// Lets the user pick the colour and waits.
    void pickColor();
    /// "#" and six hexadecimal digits: red, green, blue.
    std::string getColorAsHexString() const;
    /// Takes a colour as getColorAsHexString writes it, with or without the "#", in either case; of any other text what
    /// its beginning yields. The same text again does nothing, unless the colour has come from elsewhere since.
    void setColorFromHexString(const std::string& text);

  protected:
    /// Draws the whole control, at any moment.
    void draw();

    Color integer2Color(Int32 n) const;
    /// Whether a point is on the swatch, a pixel beyond it at the right and below included.
    bool withinColorBox(Int32 x, Int32 y) const;
    bool withinControl(Int32 x, Int32 y) const;

    /// The button is shown pressed.
    bool mouseDownAndWithin = false;
    /// Where the press began.
    Int32 mouseDownX = 0;
    Int32 mouseDownY = 0;
    /// The press may become a drag of the colour, and has become one.
    bool mouseDownWithinColorBox = false;
    bool draggedColorBox = false;
    /// How much smaller than the control its drawing is, at the right and below.
    Int32 cShrink = 0;
    /// The text that setColorFromHexString was given last; "?" when the colour has come from elsewhere since.
    std::string lastColorAsHexString;
    /// The colour picker is open.
    bool pickingColor = false;

  private:
    void drawBevel(::Graphics& g) const;
    void drawSwatch(::Graphics& g) const;
    void fillSwatchPlace(::Graphics& g) const;
    void dim(Picture& look) const;
    void showPressed(bool on);
    void dragColor(Int32 x, Int32 y);
    /// To a screen reader and the owner.
    void tellChange();
};
