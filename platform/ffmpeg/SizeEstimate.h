#pragma once

#include "platform/MovieLibrary.h"

/// See MovieLibrary::EstimateBytesPerSecond. Every failure throws.
std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                             const std::stop_token& stop);
