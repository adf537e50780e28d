#pragma once

#include "platform/MovieLibrary.h"

// What the module gives out: the operations of MovieLibrary, but that what fails throws.

std::shared_ptr<MovieWriter> CreateMovieWriter(const std::filesystem::path& path);
SizeSupport SupportOf(MovieCodec codec, int width, int height);
std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                      const std::stop_token& stop);
std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                             const std::stop_token& stop);
