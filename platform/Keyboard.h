#pragma once

#include "platform/Values.h"

namespace Keyboard {

// The characters that KeyDown handlers get for the keys without one of their own, and the space.
constexpr Int32 kEnter = 3;  // on the keypad
constexpr Int32 kBackspace = 8;
constexpr Int32 kTab = 9;
constexpr Int32 kReturn = 13;
constexpr Int32 kEscape = 27;
constexpr Int32 kLeft = 28;
constexpr Int32 kRight = 29;
constexpr Int32 kUp = 30;
constexpr Int32 kDown = 31;
constexpr Int32 kSpace = 32;
constexpr Int32 kDelete = 127;

/// Whether Ctrl is held now, whatever event is being handled.
bool AsyncCommandKey();
/// The same of Alt; of Shift as well, since many window managers keep Alt with the pointer for themselves.
bool AsyncOptionKey();

}  // namespace Keyboard
