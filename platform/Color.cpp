#include "platform/Color.h"

#include <cmath>

namespace {

struct Range {
    Int32 lowest;
    Int32 highest;
    Int32 Width() const { return highest - lowest; }
};

Range RangeOf(Color color) {
    const auto [lowest, highest] = std::minmax({color.Red(), color.Green(), color.Blue()});
    return {lowest, highest};
}

}  // namespace

Color HSV(double hue, double saturation, double value) {
    // Each component is the value, less what its distance on the circle of hues takes away.
    const auto component = [&](double offset) {
        const double place = std::fmod(offset + hue * 6, 6);
        const double distance = std::clamp(std::min(place, 4 - place), 0.0, 1.0);
        return ToInt32(std::round(255 * value * (1 - saturation * distance)));
    };
    return RGB(component(5), component(3), component(1));
}

double readColorHue(Color color) {
    const Range range = RangeOf(color);
    if (range.Width() == 0) return 0;
    const auto sixths = [&](Int32 from, Int32 to, int start) {
        return start + static_cast<double>(to - from) / range.Width();
    };
    if (color.Red() == range.highest) return std::fmod(sixths(color.Blue(), color.Green(), 6), 6) / 6;
    if (color.Green() == range.highest) return sixths(color.Red(), color.Blue(), 2) / 6;
    return sixths(color.Green(), color.Red(), 4) / 6;
}

double readColorSaturation(Color color) {
    const Range range = RangeOf(color);
    return range.highest == 0 ? 0 : static_cast<double>(range.Width()) / range.highest;
}

double readColorValue(Color color) { return RangeOf(color).highest / 255.0; }
