#pragma once

#include <QtGui/QKeyEvent>
#include <optional>
#include <string>

/// Returns the text that KeyDown handlers get for a key press: one of Keyboard's characters, else the typed
/// character, else an empty text. Returns nothing for a modifier key or a key with Ctrl, Alt or Meta.
std::optional<std::string> KeyText(const QKeyEvent& event);

/// Returns whether a press is an auto-repeat. X11 sends a repeat as a release and a press with equal
/// timestamps, which a busy Qt may fail to recognise; so windows pass each release to RememberRelease.
bool IsRepeat(const QKeyEvent& press);
void RememberRelease(const QKeyEvent& release);

/// Makes buttons, check boxes, combo boxes and groups pass Return and Enter on to their window, which presses
/// the right button. With the themes of some desktops, these controls would handle the keys themselves.
void InstallReturnForWindows();
