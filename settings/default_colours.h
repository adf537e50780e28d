#pragma once

#include "platform/Color.h"

/// The colours of a first run, and of the button that brings them back.
namespace default_colours {

constexpr Color kWindowBackground = RGB(0x9F, 0x9F, 0x9F);
constexpr Color kClockWedge = RGB(0xFF, 0x00, 0x00);
constexpr Color kClockFace = RGB(0xFF, 0xFF, 0xFF);
constexpr Color kClockFrame = RGB(0x00, 0x00, 0x00);

}  // namespace default_colours
