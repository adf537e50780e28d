#pragma once

#include "platform/Values.h"

/// The square of the status icon in the timer's canvas, in pixels. It is fixed, whatever the size of the picture drawn
/// there and of the window.
namespace StatusIcon {

constexpr Int32 kLeft = 10;
constexpr Int32 kTop = 10;
constexpr Int32 kSide = 17;

constexpr bool Contains(Int32 x, Int32 y) { return x >= kLeft && x < kLeft + kSide && y >= kTop && y < kTop + kSide; }

}  // namespace StatusIcon
