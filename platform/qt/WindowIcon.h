#pragma once

#include <string>

/// Gives all windows the icon of that name in the desktop's theme, else among the program's own, right after the first
/// paint: to find and decode it takes a third of the time until then.
void InstallWindowIcon(const std::string& name);
