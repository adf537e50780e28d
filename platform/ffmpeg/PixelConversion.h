#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <variant>
#include <vector>

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/Ffmpeg.h"

struct Codec;

/// Stands for a frame that shows what the frame before it shows.
struct SameFrame {};

/// What a movie goes on with. Nobody may write to the pixels of a frame.
using NextFrame = std::variant<SameFrame, Owned<AVFrame>>;

/// Makes frames for one codec from the pixels of pictures of one size. Rows that are the same as in the
/// picture before aren't converted again: of a clock little changes from one second to the next.
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

    const Codec& codec_;
    int width_;
    int height_;
    int bandHeight_;
    std::vector<std::uint32_t> pixels_;
    /// Converts one band.
    Owned<SwsContext> converter_;
    std::vector<Owned<AVFrame>> frames_;
    Owned<AVFrame> newest_;
};

/// A decoded frame as an image. Every failure throws.
RgbImage ToRgbImage(const AVFrame& frame);
