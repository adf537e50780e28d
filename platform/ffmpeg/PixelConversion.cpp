#include "platform/ffmpeg/PixelConversion.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/ffmpeg/Codecs.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace {

/// The layout of a frame or a picture in memory.
struct Layout {
    int width;
    int height;
    AVPixelFormat format;
    ColourCoding colours;
};

const int* Coefficients(const Layout& layout) { return sws_getCoefficients(layout.colours.matrix); }

int IsFullRange(const Layout& layout) { return layout.colours.range == AVCOL_RANGE_JPEG ? 1 : 0; }

Owned<SwsContext> MakeConverter(const Layout& from, const Layout& to) {
    // Of swscale's methods the most exact, and the fastest too.
    constexpr int kMethod = SWS_AREA | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP;
    constexpr int kUnchanged = 1 << 16;
    Owned<SwsContext> converter = Own(sws_getContext(from.width, from.height, from.format, to.width, to.height,
                                                     to.format, kMethod, nullptr, nullptr, nullptr));
    sws_setColorspaceDetails(converter.get(), Coefficients(from), IsFullRange(from), Coefficients(to), IsFullRange(to),
                             0, kUnchanged, kUnchanged);
    return converter;
}

/// The height of the bands that a frame is converted in: all of one height, and of whole lines of halved colours.
int BandHeight(int height) {
    constexpr int kLeast = 16;
    for (int band = kLeast; band < height; band += 2) {
        if (height % band == 0) return band;
    }
    return height;
}

}  // namespace

FrameMaker::FrameMaker(const Codec& codec, int width, int height)
    : codec_(codec), width_(width), height_(height), bandHeight_(BandHeight(height)) {
    pixels_.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

Owned<AVFrame> FrameMaker::Convert(std::span<const std::uint32_t> pixels) {
    const Rows changed = Changed(pixels);
    if (changed.first == changed.end) return nullptr;
    pixels_.resize(pixels.size());
    std::ranges::copy(Of(pixels, changed), Of(std::span(pixels_), changed).begin());
    if (!converter_) {
        converter_ = MakeConverter({width_, bandHeight_, AV_PIX_FMT_0RGB32, kRgb},
                                   {width_, bandHeight_, FormatFor(codec_, width_, height_), codec_.colours});
    }
    AVFrame& frame = FreeFrame();
    if (newest_) Check(av_frame_copy(&frame, newest_.get()), "converting a picture");
    for (int row = changed.first / bandHeight_ * bandHeight_; row < changed.end; row += bandHeight_) {
        ConvertBand(frame, row);
    }
    newest_ = Own(av_frame_clone(&frame));
    return Own(av_frame_clone(&frame));
}

template <class Pixel>
std::span<Pixel> FrameMaker::Of(std::span<Pixel> pixels, const Rows& rows) const {
    const auto row = static_cast<std::size_t>(width_);
    return pixels.subspan(row * static_cast<std::size_t>(rows.first),
                          row * static_cast<std::size_t>(rows.end - rows.first));
}

// Two pictures are compared in a fraction of the time in which one is converted.
FrameMaker::Rows FrameMaker::Changed(std::span<const std::uint32_t> pixels) const {
    Rows rows{0, height_};
    if (pixels_.empty()) return rows;
    const auto isSame = [&](int row) {
        const auto before = Of(std::span(pixels_), {row, row + 1});
        return std::memcmp(before.data(), Of(pixels, {row, row + 1}).data(), before.size_bytes()) == 0;
    };
    while (rows.first < rows.end && isSame(rows.first)) {
        ++rows.first;
    }
    while (rows.first < rows.end && isSame(rows.end - 1)) {
        --rows.end;
    }
    return rows;
}

void FrameMaker::ConvertBand(AVFrame& frame, int row) {
    const std::span<const std::uint32_t> band = Of(std::span(pixels_), {row, row + bandHeight_});
    const std::uint8_t* const from[] = {reinterpret_cast<const std::uint8_t*>(band.data())};
    const int stride[] = {width_ * static_cast<int>(sizeof band.front())};
    const int colourRow = row >> av_pix_fmt_desc_get(FormatFor(codec_, width_, height_))->log2_chroma_h;
    std::uint8_t* to[AV_NUM_DATA_POINTERS] = {};
    for (int plane = 0; frame.data[plane]; ++plane) {
        to[plane] = frame.data[plane] + static_cast<ptrdiff_t>(frame.linesize[plane]) * (plane == 0 ? row : colourRow);
    }
    sws_scale(converter_.get(), from, stride, 0, bandHeight_, to, frame.linesize);
}

AVFrame& FrameMaker::FreeFrame() {
    const auto isFree = [](const Owned<AVFrame>& frame) { return av_frame_is_writable(frame.get()) > 0; };
    if (const auto free = std::ranges::find_if(frames_, isFree); free != frames_.end()) return **free;
    Owned<AVFrame> frame = Own(av_frame_alloc());
    frame->width = width_;
    frame->height = height_;
    frame->format = FormatFor(codec_, width_, height_);
    frame->color_range = codec_.colours.range;
    frame->colorspace = codec_.colours.matrix;
    Check(av_frame_get_buffer(frame.get(), 0), "converting a picture");
    return *frames_.emplace_back(std::move(frame));
}

RgbImage ToRgbImage(const AVFrame& frame) {
    constexpr int kBytesPerPixel = 3;
    const int width = frame.width;
    const int height = frame.height;
    const Owned<SwsContext> converter =
        MakeConverter({width, height, static_cast<AVPixelFormat>(frame.format), {frame.color_range, frame.colorspace}},
                      {width, height, AV_PIX_FMT_RGB24, kRgb});
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBytesPerPixel;
    RgbImage image{width, height, std::vector<std::uint8_t>(size)};
    std::uint8_t* const rows[] = {image.bytes.data()};
    const int strides[] = {width * kBytesPerPixel};
    sws_scale(converter.get(), frame.data, frame.linesize, 0, height, rows, strides);
    return image;
}
