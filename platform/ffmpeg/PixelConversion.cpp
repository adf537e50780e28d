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
    Owned<SwsContext> converter(sws_getContext(from.width, from.height, from.format, to.width, to.height, to.format,
                                               kMethod, nullptr, nullptr, nullptr));
    if (converter) {
        sws_setColorspaceDetails(converter.get(), Coefficients(from), IsFullRange(from), Coefficients(to),
                                 IsFullRange(to), 0, kUnchanged, kUnchanged);
    }
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

bool FrameMaker::Take(std::span<const std::uint32_t> pixels) {
    changed_ = Changed(pixels);
    if (changed_.first == changed_.end) return false;
    pixels_.resize(pixels.size());
    std::ranges::copy(Of(pixels, changed_), Of(std::span(pixels_), changed_).begin());
    return true;
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

Owned<AVFrame> FrameMaker::Make() {
    if (!converter_) {
        converter_ = MakeConverter({width_, bandHeight_, AV_PIX_FMT_0RGB32, kRgb},
                                   {width_, bandHeight_, FormatFor(codec_, width_, height_), codec_.colours});
    }
    AVFrame* const frame = FreeFrame();
    if (!converter_ || !frame) return nullptr;
    if (newest_ && av_frame_copy(frame, newest_.get()) < 0) return nullptr;
    const Rows rows = newest_ ? changed_ : Rows{0, height_};
    for (int row = rows.first / bandHeight_ * bandHeight_; row < rows.end; row += bandHeight_) {
        ConvertBand(*frame, row);
    }
    newest_.reset(av_frame_clone(frame));
    return Owned<AVFrame>(av_frame_clone(frame));
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

AVFrame* FrameMaker::FreeFrame() {
    for (const Owned<AVFrame>& frame : frames_) {
        if (av_frame_is_writable(frame.get()) > 0) return frame.get();
    }
    Owned<AVFrame> frame = NewFrame();
    return frame ? frames_.emplace_back(std::move(frame)).get() : nullptr;
}

Owned<AVFrame> FrameMaker::NewFrame() const {
    Owned<AVFrame> frame(av_frame_alloc());
    if (!frame) return nullptr;
    frame->width = width_;
    frame->height = height_;
    frame->format = FormatFor(codec_, width_, height_);
    frame->color_range = codec_.colours.range;
    frame->colorspace = codec_.colours.matrix;
    return av_frame_get_buffer(frame.get(), 0) >= 0 ? std::move(frame) : nullptr;
}

std::optional<RgbImage> ToRgbImage(const AVFrame& frame) {
    constexpr int kBytesPerPixel = 3;
    const int width = frame.width;
    const int height = frame.height;
    const Owned<SwsContext> converter =
        MakeConverter({width, height, static_cast<AVPixelFormat>(frame.format), {frame.color_range, frame.colorspace}},
                      {width, height, AV_PIX_FMT_RGB24, kRgb});
    if (!converter) return std::nullopt;
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBytesPerPixel;
    RgbImage image{width, height, std::vector<std::uint8_t>(size)};
    std::uint8_t* const rows[] = {image.bytes.data()};
    const int strides[] = {width * kBytesPerPixel};
    sws_scale(converter.get(), frame.data, frame.linesize, 0, height, rows, strides);
    return image;
}
