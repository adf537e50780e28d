#pragma once

#include <string>

/// The texts of the About window; carriage returns separate their lines.
namespace about_text {

constexpr const char* kRights = "Copyright © 2026 The Dwindledial maintainers\rReleased under the MIT License";

/// In mark-up (shell/markup.h).
std::string Credits();

}  // namespace about_text
