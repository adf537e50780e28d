#pragma once

#include "platform/Values.h"

namespace Keyboard {

// The character codes that KeyDown handlers receive for keys that type no character, and for the space.
constexpr Int32 kEnter = 3;  // on the keypad
constexpr Int32 kBackspace = 8;
constexpr Int32 kTab = 9;
constexpr Int32 kReturn = 13;
constexpr Int32 kEscape = 27;
constexpr Int32 kLeft = 28, kRight = 29, kUp = 30, kDown = 31;
constexpr Int32 kSpace = 32;
constexpr Int32 kDelete = 127;

/// Returns whether Ctrl is held at this moment, regardless of the event being handled.
bool AsyncCommandKey();
/// Returns whether Alt or Shift is held. Shift counts because window managers often intercept Alt+click.
bool AsyncOptionKey();

}  // namespace Keyboard
