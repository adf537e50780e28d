#pragma once

#include <filesystem>

/// The user's folder for settings: $XDG_CONFIG_HOME, else ".config" in the home folder. Made for the user alone when it
/// is missing; empty when it can't be made.
std::filesystem::path UserPreferencesFolder();
