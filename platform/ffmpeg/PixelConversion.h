#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/Ffmpeg.h"

struct Codec;

/// Makes frames for one codec from the pixels of pictures of one size. What is as it was in the picture before isn't
/// converted again: of a clock little changes from one second to the next.
class FrameMaker {
  public:
    FrameMaker(const Codec& codec, int width, int height);

    /// A frame of the next picture's pixels (0xFFRRGGBB, row by row without padding), which nobody may write to. Nil
    /// when they are the same as before. Throws when there is no memory for it.
    Owned<AVFrame> Convert(std::span<const std::uint32_t> pixels);

  private:
    /// The first row that differs from the picture before, and the one behind the last.
    std::pair<int, int> ChangedRows(std::span<const std::uint32_t> pixels) const;
    /// A frame that nobody holds any more; the newest one is held here.
    AVFrame& FreeFrame();
    void ConvertBand(AVFrame& frame, int row);
    /// Where a row begins in the pixels.
    std::size_t At(int row) const { return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_); }

    const Codec& codec_;
    int width_;
    int height_;
    int bandHeight_;
    std::vector<std::uint32_t> pixels_;
    /// Of one band.
    Owned<SwsContext> converter_;
    std::vector<Owned<AVFrame>> frames_;
    Owned<AVFrame> newest_;
};

/// A decoded frame as an image. Throws when there is no memory for it.
RgbImage ToRgbImage(const AVFrame& frame);
