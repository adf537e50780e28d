#pragma once

#include <QtGui/QKeyEvent>
#include <string>

/// A pressed key as the one character that KeyDown handlers get: Return 13, the keypad's Enter 3, Escape 27,
/// Backspace 8, Tab 9, Delete 127, the arrows left, right, up, down 28 to 31, else the character typed. Empty for a key
/// without one and for one held with Ctrl, Alt or Meta, which is a command.
std::string KeyText(const QKeyEvent& event);

/// Whether a press comes from a key that is being held. Qt's own mark isn't enough: on X11 a repeat is a release and a
/// press at the same moment, and on a busy machine Qt may look at the one before the other is there. So the windows
/// tell of each release that they see.
bool IsRepeat(const QKeyEvent& press);
void RememberRelease(const QKeyEvent& release);
