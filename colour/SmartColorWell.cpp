#include "colour/SmartColorWell.h"

#include <algorithm>
#include <cstdlib>

#include "platform/Application.h"
#include "platform/DragItem.h"
#include "platform/Graphics.h"
#include "platform/Host.h"
#include "platform/Picture.h"
#include "platform/Text.h"
#include "platform/targets.h"

namespace {

/// What lastColorAsHexString holds when the colour has not come from a text.
constexpr const char* kNoText = "?";

/// How far the pointer may stray in a press before it becomes a drag.
constexpr Int32 kDragDistance = 3;
/// The side of the square that is dragged.
constexpr Int32 kDragSize = 12;

std::string TwoDigits(Int32 component) {
    const std::string digits = Hex(component);
    return digits.size() == 1 ? "0" + digits : digits;
}

/// The colour itself, in a thin frame that shows on any ground.
Ref<Picture> PictureToDrag(Color color, double scale) {
    Ref<Picture> picture = NewPicture(kDragSize, kDragSize, 32, scale);
    const Ref<Graphics> g = picture->Graphics();
    g->ForeColor(color);
    g->FillRect(0, 0, kDragSize, kDragSize);
    g->ForeColor(HSV(0, 0, 0.5));
    g->DrawRect(0, 0, kDragSize, kDragSize);
    return picture;
}

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
    mouseDownWithinColorBox =
        withinColorBox(x, y) && (EnableColorDrag || Keyboard::AsyncCommandKey() || Keyboard::AsyncOptionKey());
    if (MouseDown) MouseDown(x, y);
    return true;
}

void SmartColorWell::Event_MouseDrag(Int32 x, Int32 y) {
    if (!mouseDownWithinColorBox) {
        if (withinControl(x, y) != mouseDownAndWithin) showPressed(!mouseDownAndWithin);
        return;
    }
    const bool hasMoved = std::abs(x - mouseDownX) > kDragDistance || std::abs(y - mouseDownY) > kDragDistance;
    if (!hasMoved || draggedColorBox) return;
    showPressed(false);
    draggedColorBox = true;
    if constexpr (targets::kDragFromPress) {
        dragColor(mouseDownX, mouseDownY);
    } else {
        dragColor(x, y);
    }
}

void SmartColorWell::dragColor(Int32 x, Int32 y) {
    const Ref<DragItem> item = NewDragItem(Left() + x - kDragSize / 2, Top() + y - kDragSize / 2, kDragSize, kDragSize);
    item->Text(getColorAsHexString());
    item->DragPicture(PictureToDrag(ColorSelected, ScaleFactor()));
    item->Drag();
}

// Drawn before the flag falls: what counts is a release inside, which comes to pickColor, where it is drawn again.
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
        DescriptionChanged();
        if (ColorChange) ColorChange(ColorSelected);
    }
    draw();
}

void SmartColorWell::setColor(Color c) {
    if (c == ColorSelected) return;
    ColorSelected = c;
    lastColorAsHexString = kNoText;
    DescriptionChanged();
    draw();
    if (ColorChange) ColorChange(ColorSelected);
}

std::string SmartColorWell::getColorAsHexString() const {
    return "#" + TwoDigits(ColorSelected.Red()) + TwoDigits(ColorSelected.Green()) + TwoDigits(ColorSelected.Blue());
}

void SmartColorWell::setColorFromHexString(const std::string& text) {
    if (text == lastColorAsHexString) return;
    lastColorAsHexString = text;
    const Color before = ColorSelected;
    ColorSelected = integer2Color(ToInt32(Val("&h" + Replace(text, "#", ""))));
    if (ColorSelected == before) return;
    DescriptionChanged();
    draw();
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
