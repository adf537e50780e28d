#pragma once

#include <filesystem>
#include <optional>

#include "platform/MovieLibrary.h"

/// As MovieLibrary has it.
std::optional<RgbImage> ReadPict(const std::filesystem::path& file);
