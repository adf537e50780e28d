#pragma once

#include <QtGui/QKeyEvent>
#include <optional>
#include <string>

/// A pressed key as KeyDown handlers get it: one of Keyboard's characters, else the one typed, else an empty
/// text. Nothing for a modifier key alone, nor for a command, a key pressed with Ctrl, Alt or Meta.
std::optional<std::string> KeyText(const QKeyEvent& event);

/// Whether a press is the repeat of a held key. Qt's own flag isn't enough: on X11 a repeat is a release and
/// a press with the same timestamp, which a busy Qt may not see together. So windows report each release.
bool IsRepeat(const QKeyEvent& press);
void RememberRelease(const QKeyEvent& release);

/// Makes buttons, check boxes, combo boxes and groups pass Return and Enter on to their window, which knows
/// what these keys press. With the themes of some desktops each of them would handle the keys itself.
void InstallReturnForWindows();
