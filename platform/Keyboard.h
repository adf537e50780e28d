#pragma once

#include "platform/Values.h"

namespace Keyboard {

// What KeyDown handlers get for the keys that type no character, and the space.
constexpr Int32 kEnter = 3;  // on the keypad
constexpr Int32 kBackspace = 8;
constexpr Int32 kTab = 9;
constexpr Int32 kReturn = 13;
constexpr Int32 kEscape = 27;
constexpr Int32 kLeft = 28, kRight = 29, kUp = 30, kDown = 31;
constexpr Int32 kSpace = 32;
constexpr Int32 kDelete = 127;

/// Whether Ctrl is held at this moment, whatever event is being handled.
bool AsyncCommandKey();
/// Whether Alt or Shift is held. Shift too, because many window managers reserve Alt with the pointer.
bool AsyncOptionKey();

}  // namespace Keyboard
