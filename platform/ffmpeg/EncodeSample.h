#pragma once

#include <optional>
#include <span>
#include <stop_token>

#include "platform/CompressionSettings.h"
#include "platform/Picture.h"
#include "platform/ffmpeg/PictReader.h"

/// What a few frames look like, and how much they take, once they are encoded.
struct EncodedSample {
    RgbImage firstFrame;
    double bytesPerFrame;
};

/// Encodes pictures of one size in memory, and decodes the first of them again. Nothing when that can't be done or
/// `stop` asks for the end, which is looked at before each frame. Any thread, while nobody draws on the pictures.
std::optional<EncodedSample> EncodeSample(const CompressionSettings& settings, std::span<const Ref<Picture>> pictures,
                                          const std::stop_token& stop);
