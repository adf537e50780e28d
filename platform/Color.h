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

/// Returns the colour with these components, each clamped to 0 to 255.
constexpr Color RGB(Int32 red, Int32 green, Int32 blue) {
    constexpr auto component = [](Int32 c) { return std::clamp(c, 0, 255); };
    return Color{component(red) << 16 | component(green) << 8 | component(blue)};
}

/// Converts hue, saturation and value, each from 0 to 1, to a colour, with components rounded to the nearest.
/// Given the results of the three functions below for a colour, it returns exactly that colour.
Color HSV(double hue, double saturation, double value);
/// Returns the hue, from 0 to below 1: 0 is red, 1/3 green, 2/3 blue. The hue of a grey is 0.
double readColorHue(Color color);
double readColorSaturation(Color color);
double readColorValue(Color color);
