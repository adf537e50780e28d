#pragma once

#include <cstdint>
#include <span>
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
    /// when they are the same as before. Throws FfmpegError when there is no memory for it.
    Owned<AVFrame> Convert(std::span<const std::uint32_t> pixels);

  private:
    /// The rows from `first` up to, but not including, `end`.
    struct Rows {
        int first = 0;
        int end = 0;
    };

    template <class Pixel>
    std::span<Pixel> Of(std::span<Pixel> pixels, const Rows& rows) const;
    Rows Changed(std::span<const std::uint32_t> pixels) const;
    void ConvertBand(AVFrame& frame, int row);
    AVFrame& FreeFrame();

    const Codec& codec_;
    int width_;
    int height_;
    int bandHeight_;
    std::vector<std::uint32_t> pixels_;
    /// Of one band.
    Owned<SwsContext> converter_;
    /// All frames that were ever needed at a time. They are used again as soon as nobody else holds them.
    std::vector<Owned<AVFrame>> frames_;
    /// The newest of them.
    Owned<AVFrame> newest_;
};

/// A decoded frame as an image. Throws FfmpegError when there is no memory for it.
RgbImage ToRgbImage(const AVFrame& frame);
