#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/CompressionSettings.h"
#include "platform/ffmpeg/Owned.h"
#include "platform/ffmpeg/PictReader.h"

struct Codec;

/// Makes frames for one codec from the pixels of pictures of one size.
class FrameMaker {
  public:
    FrameMaker(const Codec& codec, int width, int height) : codec_(codec), width_(width), height_(height) {}

    /// A frame of these pixels (0xFFRRGGBB, row by row without padding), which nobody may write to. Nil when there is
    /// no memory for it.
    Owned<AVFrame> Make(std::span<const std::uint32_t> pixels);

  private:
    Owned<AVFrame> NewFrame() const;
    AVFrame* FreeFrame();

    const Codec& codec_;
    int width_;
    int height_;
    Owned<SwsContext> converter_;
    /// All frames that were ever needed at a time. They are used again as soon as nobody else holds them.
    std::vector<Owned<AVFrame>> frames_;
};

/// A decoded frame as an image. Nothing when there is no memory for it.
std::optional<RgbImage> ToRgbImage(const AVFrame& frame);
