#include "platform/ffmpeg/PixelConversion.h"

#include <utility>

#include "platform/ffmpeg/Codecs.h"

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

}  // namespace

Owned<AVFrame> FrameMaker::Make(std::span<const std::uint32_t> pixels) {
    if (!converter_) {
        converter_ = MakeConverter({width_, height_, AV_PIX_FMT_0RGB32, kRgb},
                                   {width_, height_, FormatFor(codec_, width_, height_), codec_.colours});
    }
    AVFrame* const frame = FreeFrame();
    if (!converter_ || !frame) return nullptr;
    const std::uint8_t* const rows[] = {reinterpret_cast<const std::uint8_t*>(pixels.data())};
    const int strides[] = {width_ * static_cast<int>(sizeof pixels.front())};
    sws_scale(converter_.get(), rows, strides, 0, height_, frame->data, frame->linesize);
    return Owned<AVFrame>(av_frame_clone(frame));
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
