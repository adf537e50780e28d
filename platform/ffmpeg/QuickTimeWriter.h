#pragma once

#include "platform/MovieLibrary.h"

/// Creates a QuickTime file or truncates an existing one. On failure, prints the reason to stderr and throws.
std::shared_ptr<MovieWriter> CreateQuickTimeWriter(const std::filesystem::path& path);
