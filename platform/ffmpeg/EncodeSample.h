#pragma once

#include <optional>
#include <span>
#include <stop_token>

#include "platform/MovieLibrary.h"

/// As MovieLibrary has it.
std::optional<EncodedSample> EncodeSample(const CompressionSettings& settings, std::span<const PixelView> frames,
                                          const std::stop_token& stop);
