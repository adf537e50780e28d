#pragma once

#include <utility>
#include <variant>

#include "platform/ffmpeg/Codecs.h"

/// Stands for a frame that equals the previous frame.
struct SameFrame {};

/// The next frame of a movie. Its pixels are shared and read-only.
using NextFrame = std::variant<SameFrame, Owned<AVFrame>>;

/// Converts pictures of one size into frames for one codec. Only bands of rows that have changed since the
/// previous picture are converted, because little of a clock changes from one second to the next.
class FrameMaker {
  public:
    FrameMaker(const Codec& codec, int width, int height);

    /// Converts the next picture, given as 0xFFRRGGBB, row by row without padding. Every failure throws.
    NextFrame Convert(std::span<const std::uint32_t> pixels);

  private:
    /// Returns the first row that differs from the previous picture, and the row after the last such row.
    std::pair<int, int> ChangedRows(std::span<const std::uint32_t> pixels) const;
    /// Returns a frame to which no reference is left, allocating one if need be.
    AVFrame& UnusedFrame();
    void ConvertBand(AVFrame& frame, int row);
    /// Returns the index of a row's first pixel.
    std::size_t At(int row) const { return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_); }

    PixelLayout layout_;
    int width_;
    int height_;
    int bandHeight_;
    Owned<SwsContext> converter_;  ///< converts one band
    std::vector<std::uint32_t> pixels_;
    std::vector<Owned<AVFrame>> frames_;
    Owned<AVFrame> newest_;
};

/// Converts a decoded frame to an RGB image. Every failure throws.
RgbImage ToRgbImage(const AVFrame& frame);
