#pragma once

#include <optional>
#include <span>
#include <stop_token>

#include "platform/MovieLibrary.h"

// As MovieLibrary has them.

SizeSupport SupportOf(MovieCodec codec, int width, int height);
std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                      const std::stop_token& stop);
std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                             const std::stop_token& stop);
