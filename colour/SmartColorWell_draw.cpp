#include <algorithm>

#include "colour/SmartColorWell.h"
#include "platform/Graphics.h"
#include "platform/Picture.h"
#include "platform/targets.h"

// The look, computed from greys: a raised button at any size, which darkens while it is pressed and fades while it
// can't be used.

namespace {

Color Grey(double value) { return HSV(0, 0, value); }

/// A colour of the same hue and saturation, darker by an amount of value.
Color Darker(Color color, double amount) {
    return HSV(readColorHue(color), readColorSaturation(color), std::max(0.0, readColorValue(color) - amount));
}

/// By how much everything but the outline darkens while the button is pressed.
constexpr double kPressed = 0.44;
/// From one of the swatch's frames to the next.
constexpr double kFrameStep = 0.1;

}  // namespace

void SmartColorWell::draw() {
    const Ref<Picture> look = NewPicture(Width(), Height(), 32, ScaleFactor());
    drawBevel(*look->Graphics());
    drawSwatch(*look->Graphics());
    if (isDimmed()) dim(*look);
    const Ref<::Graphics> g = Graphics();
    if constexpr (targets::kClearBeforeCopy) g->ClearRect(0, 0, Width(), Height());
    g->DrawPicture(look, 0, 0, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
}

// Five bands, each lower and lighter than the last and half beneath it, then the outline, then the edges.
void SmartColorWell::drawBevel(::Graphics& g) const {
    const Int32 width = Width() - cShrink;
    const Int32 height = Height() - cShrink;
    const double darkening = mouseDownAndWithin ? kPressed : 0;
    const auto share = [height](double part) { return ToInt32(height * part); };

    const auto band = [&](double value, double from) {
        g.ForeColor(Grey(value - darkening));
        g.FillRect(0, share(from), width, share(0.4));
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
    fillSwatchPlace(g);
    // A pixel further down than across: its lowest line lies beneath that of the outer frame.
    g.ForeColor(inner);
    g.DrawRect(Margin + 1, Margin + 1, width - 2, height - 1);
    g.ForeColor(Darker(inner, kFrameStep));
    g.DrawRect(Margin, Margin, width, height);
}

void SmartColorWell::fillSwatchPlace(::Graphics& g) const {
    g.FillRect(Margin, Margin, Width() - cShrink - 2 * Margin, Height() - cShrink - 2 * Margin);
}

bool SmartColorWell::isDimmed() const {
    if (pickingColor) return false;
    return !Enabled() || !Active() || (Parent() && !Parent()->Enabled());
}

// Everything goes half transparent, but for the swatch of a well that is in front.
void SmartColorWell::dim(Picture& look) const {
    const Ref<::Graphics> mask = look.Mask(true)->Graphics();
    mask->ForeColor(RGB(128, 128, 128));
    mask->FillRect(0, 0, Width(), Height());
    if (!Active() || AlsoDimColor) return;
    mask->ForeColor(RGB(0, 0, 0));
    fillSwatchPlace(*mask);
}
