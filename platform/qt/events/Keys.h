#pragma once

#include <QtGui/QKeyEvent>
#include <optional>
#include <string>

/// A pressed key as KeyDown handlers get it: one of the characters named in Keyboard, else the one typed, else an empty
/// text. Nothing for a command, a key held with Ctrl, Alt or Meta, and for those keys alone.
std::optional<std::string> KeyText(const QKeyEvent& event);

/// Whether a press comes from a key that is being held. Qt's own mark isn't enough: on X11 a repeat is a release and a
/// press at the same moment, and a busy Qt may not see the two together. So the windows tell of each release.
bool IsRepeat(const QKeyEvent& press);
void RememberRelease(const QKeyEvent& release);

/// Has Return and Enter go past buttons, boxes and groups to their window, which knows what they press. The themes of
/// some desktops would have each of them take these keys for itself.
void InstallReturnForWindows();
