#pragma once

#include "platform/MovieLibrary.h"

/// Implements MovieLibrary::EstimateBytesPerSecond, except that every failure throws.
std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                             const std::stop_token& stop);
