#pragma once

#include "platform/MovieLibrary.h"

/// Writes a new QuickTime file over what is there. When that fails, says why on standard error and throws.
std::shared_ptr<MovieWriter> CreateQuickTimeWriter(const std::filesystem::path& path);
