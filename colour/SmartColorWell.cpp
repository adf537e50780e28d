#include "colour/SmartColorWell.h"

#include <algorithm>
#include <cstdlib>

#include "platform/Graphics.h"
#include "platform/Host.h"
#include "platform/Keyboard.h"
#include "platform/Picture.h"
#include "platform/Text.h"
#include "platform/Variant.h"
#include "platform/targets.h"

namespace {

/// The value of lastColorAsHexString if the colour wasn't set from a text.
constexpr const char* kNoText = "?";

constexpr Int32 kDragDistance = 3;  // pixels that a pressed pointer may move without starting a drag
constexpr Int32 kDragSize = 12;     // pixels on each side of the dragged square

/// Returns a swatch of the colour with a thin grey frame, so that it is visible on any background.
Ref<Picture> PictureToDrag(Color color, double scale) {
    Ref<Picture> picture = NewPicture(kDragSize, kDragSize, 32, scale);
    const Ref<Graphics> g = picture->Graphics();
    g->ForeColor(color);
    g->FillRect(0, 0, kDragSize, kDragSize);
    g->ForeColor(HSV(0, 0, 0.5));
    g->DrawRect(0, 0, kDragSize, kDragSize);
    return picture;
}

Color Grey(double value) { return HSV(0, 0, value); }

/// Returns the colour with its HSV value lowered by `amount`, but not below 0.
Color Darker(Color color, double amount) {
    const double value = std::max(0.0, readColorValue(color) - amount);
    return HSV(readColorHue(color), readColorSaturation(color), value);
}

/// The amount by which HSV values are lowered while the button is pressed. The outline uses half of it.
constexpr double kPressed = 0.44;
/// The amount by which the HSV value of a frame of the swatch is lower than that of the area inside.
constexpr double kFrameStep = 0.1;

}  // namespace

void SmartColorWell::Event_Open() {
    constexpr Int32 kFlat = 20;
    if (Margin == 0) Margin = Height() < kFlat ? 2 : 5;
    Margin = std::max(Margin, 0);
    if constexpr (targets::kShrunkColorWell) cShrink = 1;
    PickerPromptText = "Pick a color:";
    AcceptTextDrop();
    Accessibility.Role = Accessible::Roles::Button;
    Accessibility.Description = [this] { return getColorAsHexString(); };
    Accessibility.Press = [this] { pickColor(); };
    if (Open) Open();
}

void SmartColorWell::Event_Paint(const Ref<::Graphics>& g) {
    draw();
    if (Paint) Paint(g);
}

bool SmartColorWell::Event_MouseDown(Int32 x, Int32 y) {
    mouseDownX = x;
    mouseDownY = y;
    draggedColorBox = false;
    showPressed(true);
    const bool mayDrag = EnableColorDrag || Keyboard::AsyncCommandKey() || Keyboard::AsyncOptionKey();
    mouseDownWithinColorBox = mayDrag && withinColorBox(x, y);
    if (MouseDown) MouseDown(x, y);
    return true;
}

void SmartColorWell::Event_MouseDrag(Int32 x, Int32 y) {
    if (!mouseDownWithinColorBox) {
        if (withinControl(x, y) != mouseDownAndWithin) showPressed(!mouseDownAndWithin);
        return;
    }
    const Int32 distance = std::max(std::abs(x - mouseDownX), std::abs(y - mouseDownY));
    if (distance <= kDragDistance || draggedColorBox) return;
    showPressed(false);
    draggedColorBox = true;
    dragColor(targets::kDragFromPress ? mouseDownX : x, targets::kDragFromPress ? mouseDownY : y);
}

void SmartColorWell::dragColor(Int32 x, Int32 y) {
    const Int32 left = Left() + x - kDragSize / 2;
    const Int32 top = Top() + y - kDragSize / 2;
    const Ref<DragItem> item = NewDragItem(left, top, kDragSize, kDragSize);
    item->Text(getColorAsHexString());
    item->DragPicture(PictureToDrag(ColorSelected, ScaleFactor()));
    item->Drag();
}

// Draws before mouseDownAndWithin is cleared. After a release inside, pickColor draws the well again.
void SmartColorWell::Event_MouseUp(Int32 x, Int32 y) {
    draw();
    mouseDownAndWithin = false;
    if (!draggedColorBox && withinControl(x, y)) pickColor();
    if (MouseUp) MouseUp(x, y);
}

void SmartColorWell::Event_DropObject(const Ref<DragItem>& object, Int32) {
    if (object->TextAvailable()) setColorFromHexString(object->Text());
}

void SmartColorWell::showPressed(bool on) {
    mouseDownAndWithin = on;
    draw();
}

void SmartColorWell::pickColor() {
    Color c = ColorSelected;
    pickingColor = true;
    draw();
    const bool isConfirmed = SelectColor(c, PickerPromptText);
    pickingColor = false;
    ColorSelected = c;
    if (isConfirmed) {
        lastColorAsHexString = kNoText;
        tellChange();
    }
    draw();
}

void SmartColorWell::setColor(Color c) {
    if (c == ColorSelected) return;
    ColorSelected = c;
    lastColorAsHexString = kNoText;
    draw();
    tellChange();
}

std::string SmartColorWell::getColorAsHexString() const { return Variant(ColorSelected).StringValue(); }

void SmartColorWell::setColorFromHexString(const std::string& text) {
    if (text == lastColorAsHexString) return;
    lastColorAsHexString = text;
    const Color before = ColorSelected;
    ColorSelected = integer2Color(ToInt32(Val("&h" + Replace(text, "#", ""))));
    if (ColorSelected == before) return;
    draw();
    tellChange();
}

void SmartColorWell::tellChange() {
    DescriptionChanged();
    if (ColorChange) ColorChange(ColorSelected);
}

Color SmartColorWell::integer2Color(Int32 n) const {
    const Int32 red = ToInt32(n / 65536.0);
    const Int32 green = ToInt32((n - red * 65536) / 256.0);
    return RGB(red, green, n - red * 65536 - green * 256);
}

bool SmartColorWell::withinColorBox(Int32 x, Int32 y) const {
    return x >= Margin && x <= Width() - Margin && y >= Margin && y <= Height() - Margin;
}

bool SmartColorWell::withinControl(Int32 x, Int32 y) const { return x >= 0 && x < Width() && y >= 0 && y < Height(); }

// The drawing code. Shades of grey look like a raised button, darker while pressed, paler while disabled.

void SmartColorWell::draw() {
    const Ref<Picture> look = NewPicture(Width(), Height(), 32, ScaleFactor());
    drawBevel(*look->Graphics());
    drawSwatch(*look->Graphics());
    const bool isDimmed = !pickingColor && (!Enabled() || !Active() || (Parent() && !Parent()->Enabled()));
    if (isDimmed) dim(*look);
    const Ref<::Graphics> g = Graphics();
    if constexpr (targets::kClearBeforeCopy) g->ClearRect(0, 0, Width(), Height());
    g->DrawPicture(look, 0, 0);
}

// Draws five bands, then the lines. Each band is lighter than the previous band and covers its lower half.
void SmartColorWell::drawBevel(::Graphics& g) const {
    const Int32 width = Width() - cShrink;
    const Int32 height = Height() - cShrink;
    const double darkening = mouseDownAndWithin ? kPressed : 0;
    const auto band = [&](double value, double from) {
        g.ForeColor(Grey(value - darkening));
        g.FillRect(0, ToInt32(height * from), width, ToInt32(height * 0.4));
    };
    band(0.87, 0);
    band(0.9, 0.2);
    band(0.93, 0.4);
    band(0.96, 0.6);
    band(1.0, 0.8);

    g.ForeColor(Grey(0.5 - darkening / 2));
    g.DrawRect(0, 0, width, height);
    g.ForeColor(Grey(0.85 - darkening));
    g.DrawRect(1, 1, width - 2, height - 2);

    const auto edge = [&](double value, Int32 x1, Int32 x2, Int32 y) {
        g.ForeColor(Grey(value - darkening));
        g.DrawLine(x1, y, x2, y);
    };
    edge(0.99, 1, width - 2, 1);
    edge(0.93, 2, width - 3, 2);
    edge(0.95, 2, width - 3, height - 2);
}

void SmartColorWell::drawSwatch(::Graphics& g) const {
    const Int32 width = Width() - cShrink - 2 * Margin;
    const Int32 height = Height() - cShrink - 2 * Margin;
    const Color swatch = mouseDownAndWithin ? Darker(ColorSelected, kPressed) : ColorSelected;
    const Color inner = Darker(swatch, kFrameStep);

    g.ForeColor(swatch);
    fillSwatch(g);
    // The inner frame is one pixel too tall, so the outer frame covers its bottom line.
    g.ForeColor(inner);
    g.DrawRect(Margin + 1, Margin + 1, width - 2, height - 1);
    g.ForeColor(Darker(inner, kFrameStep));
    g.DrawRect(Margin, Margin, width, height);
}

void SmartColorWell::fillSwatch(::Graphics& g) const {
    g.FillRect(Margin, Margin, Width() - cShrink - 2 * Margin, Height() - cShrink - 2 * Margin);
}

// Makes the picture half transparent. In an active window, the swatch is exempt unless AlsoDimColor is set.
void SmartColorWell::dim(Picture& look) const {
    const Ref<::Graphics> mask = look.Mask(true)->Graphics();
    mask->ForeColor(RGB(128, 128, 128));
    mask->FillRect(0, 0, Width(), Height());
    if (!Active() || AlsoDimColor) return;
    mask->ForeColor(RGB(0, 0, 0));
    fillSwatch(*mask);
}
