#pragma once

#include <utility>
#include <variant>

#include "platform/ffmpeg/Codecs.h"

/// Stands for a frame that is equal to the one before it.
struct SameFrame {};

/// The next frame of a movie. Nobody may write to its pixels.
using NextFrame = std::variant<SameFrame, Owned<AVFrame>>;

/// Makes frames for one codec from pictures of one size. Rows that haven't changed since the picture before
/// aren't converted again: little of a clock changes from one second to the next.
class FrameMaker {
  public:
    FrameMaker(const Codec& codec, int width, int height);

    /// A frame of the next picture's pixels: 0xFFRRGGBB, row by row without padding. Every failure throws.
    NextFrame Convert(std::span<const std::uint32_t> pixels);

  private:
    /// The first row that differs from the picture before, and the row behind the last one.
    std::pair<int, int> ChangedRows(std::span<const std::uint32_t> pixels) const;
    /// A frame that nobody holds any more. The newest one is always held, by newest_.
    AVFrame& UnusedFrame();
    void ConvertBand(AVFrame& frame, int row);
    /// The index of a row's first pixel.
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

/// A decoded frame as an image. Every failure throws.
RgbImage ToRgbImage(const AVFrame& frame);
