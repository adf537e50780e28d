#pragma once

#include <algorithm>

#include "platform/Values.h"

/// A 24-bit colour, compared by value: red in bits 16 to 23, green in bits 8 to 15, blue in bits 0 to 7.
struct Color {
    Int32 value = 0;

    constexpr Int32 Red() const { return (value >> 16) & 0xFF; }
    constexpr Int32 Green() const { return (value >> 8) & 0xFF; }
    constexpr Int32 Blue() const { return value & 0xFF; }

    constexpr bool operator==(const Color&) const = default;
};

/// A colour of three components from 0 to 255; a component outside is clamped.
constexpr Color RGB(Int32 red, Int32 green, Int32 blue) {
    constexpr auto component = [](Int32 c) { return std::clamp(c, 0, 255); };
    return Color{component(red) << 16 | component(green) << 8 | component(blue)};
}

/// A colour of hue, saturation and value, each from 0 to 1; the components are rounded to the nearest. From
/// the three numbers that the functions below give for a colour, it makes that same colour.
Color HSV(double hue, double saturation, double value);
/// From 0 (red) over 1/3 (green) and 2/3 (blue) to below 1; 0 for a grey.
double readColorHue(Color color);
double readColorSaturation(Color color);
double readColorValue(Color color);
