#include "platform/ffmpeg/PixelConversion.h"

#include <algorithm>
#include <cstring>

namespace {

const int* Coefficients(const PixelLayout& layout) { return sws_getCoefficients(layout.colours.matrix); }

int IsFullRange(const PixelLayout& layout) { return layout.colours.range == AVCOL_RANGE_JPEG ? 1 : 0; }

Owned<SwsContext> MakeConverter(int width, int height, const PixelLayout& from, const PixelLayout& to) {
    // Of swscale's methods, this one is both the most exact and the fastest.
    constexpr int kMethod = SWS_AREA | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP;
    constexpr int kUnchanged = 1 << 16;
    Owned<SwsContext> converter =
        Own(sws_getContext(width, height, from.format, width, height, to.format, kMethod, nullptr, nullptr, nullptr));
    sws_setColorspaceDetails(converter.get(), Coefficients(from), IsFullRange(from), Coefficients(to), IsFullRange(to),
                             0, kUnchanged, kUnchanged);
    return converter;
}

/// Returns an even divisor of `height`, since two rows may share chroma samples; `height` if there is none.
int BandHeight(int height) {
    constexpr int kLeast = 16;
    for (int band = kLeast; band < height; band += 2)
        if (height % band == 0) return band;
    return height;
}

}  // namespace

FrameMaker::FrameMaker(const Codec& codec, int width, int height)
    : layout_(codec.LayoutFor(width, height)),
      width_(width),
      height_(height),
      bandHeight_(BandHeight(height)),
      converter_(MakeConverter(width, bandHeight_, {AV_PIX_FMT_0RGB32, kRgb}, layout_)) {}

NextFrame FrameMaker::Convert(std::span<const std::uint32_t> pixels) {
    const auto [first, end] = ChangedRows(pixels);
    if (first == end) return SameFrame{};
    pixels_.resize(pixels.size());
    std::copy(pixels.data() + At(first), pixels.data() + At(end), pixels_.data() + At(first));
    AVFrame& frame = UnusedFrame();
    if (newest_) Check(av_frame_copy(&frame, newest_.get()), "copying a frame");
    for (int row = first / bandHeight_ * bandHeight_; row < end; row += bandHeight_)
        ConvertBand(frame, row);
    newest_ = Own(av_frame_clone(&frame));
    return Own(av_frame_clone(&frame));
}

// Frames are reused, because touching newly allocated memory causes a page fault for each page.
AVFrame& FrameMaker::UnusedFrame() {
    for (const Owned<AVFrame>& frame : frames_)
        if (av_frame_is_writable(frame.get()) > 0) return *frame;
    AVFrame& frame = *frames_.emplace_back(Own(av_frame_alloc()));
    frame.width = width_;
    frame.height = height_;
    frame.format = layout_.format;
    frame.color_range = layout_.colours.range;
    frame.colorspace = layout_.colours.matrix;
    Check(av_frame_get_buffer(&frame, 0), "allocating");
    return frame;
}

// Comparing two pictures takes a fraction of the time of converting one.
std::pair<int, int> FrameMaker::ChangedRows(std::span<const std::uint32_t> pixels) const {
    int first = 0;
    int end = height_;
    if (pixels_.empty()) return {first, end};
    const auto isSame = [&](int row) {
        return std::memcmp(pixels_.data() + At(row), pixels.data() + At(row), At(1) * sizeof(pixels[0])) == 0;
    };
    while (first < end && isSame(first))
        ++first;
    while (first < end && isSame(end - 1))
        --end;
    return {first, end};
}

void FrameMaker::ConvertBand(AVFrame& frame, int row) {
    const std::uint8_t* const from[] = {reinterpret_cast<const std::uint8_t*>(pixels_.data() + At(row))};
    const int stride[] = {width_ * static_cast<int>(sizeof(pixels_[0]))};
    const int colourRow = row >> av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format))->log2_chroma_h;
    std::uint8_t* to[AV_NUM_DATA_POINTERS] = {};
    for (int plane = 0; frame.data[plane]; ++plane)
        to[plane] = frame.data[plane] + ptrdiff_t{frame.linesize[plane]} * (plane == 0 ? row : colourRow);
    sws_scale(converter_.get(), from, stride, 0, bandHeight_, to, frame.linesize);
}

RgbImage ToRgbImage(const AVFrame& frame) {
    constexpr int kBytesPerPixel = 3;
    const int width = frame.width;
    const int height = frame.height;
    const PixelLayout decoded{static_cast<AVPixelFormat>(frame.format), {frame.color_range, frame.colorspace}};
    const Owned<SwsContext> converter = MakeConverter(width, height, decoded, {AV_PIX_FMT_RGB24, kRgb});
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBytesPerPixel;
    RgbImage image{width, height, std::vector<std::uint8_t>(size)};
    std::uint8_t* const rows[] = {image.bytes.data()};
    const int strides[] = {width * kBytesPerPixel};
    sws_scale(converter.get(), frame.data, frame.linesize, 0, height, rows, strides);
    return image;
}
