#pragma once

#include <string>

/// Gives all windows the icon of that name in the desktop's theme, else among the program's own, right after the first
/// paint: to find and decode it would add a third to the time until then. Not earlier, as some window managers put an
/// icon of their own on a window that comes without one.
void InstallWindowIcon(const std::string& name);
