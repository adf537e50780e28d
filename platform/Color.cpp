#include "platform/Color.h"

namespace {

Int32 Highest(Color color) { return std::max({color.Red(), color.Green(), color.Blue()}); }

Int32 Range(Color color) { return Highest(color) - std::min({color.Red(), color.Green(), color.Blue()}); }

}  // namespace

Color HSV(double hue, double saturation, double value) {
    // The farther a component's own hue is from `hue`, the more it is reduced below `value`.
    const auto component = [&](double offset) {
        const double place = std::fmod(offset + hue * 6, 6);
        const double distance = std::clamp(std::min(place, 4 - place), 0.0, 1.0);
        return ToInt32(std::round(255 * value * (1 - saturation * distance)));
    };
    return RGB(component(5), component(3), component(1));
}

double readColorHue(Color color) {
    if (Range(color) == 0) return 0;
    const auto sixths = [&](Int32 from, Int32 to, int start) {
        return start + static_cast<double>(to - from) / Range(color);
    };
    if (color.Red() == Highest(color)) return std::fmod(sixths(color.Blue(), color.Green(), 6), 6) / 6;
    if (color.Green() == Highest(color)) return sixths(color.Red(), color.Blue(), 2) / 6;
    return sixths(color.Green(), color.Red(), 4) / 6;
}

double readColorSaturation(Color color) {
    return Highest(color) == 0 ? 0 : static_cast<double>(Range(color)) / Highest(color);
}

double readColorValue(Color color) { return Highest(color) / 255.0; }
