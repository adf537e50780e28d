#include "platform/ffmpeg/PictReader.h"

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

namespace {

struct Closer {
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};
template <class T>
using Owned = std::unique_ptr<T, Closer>;

Owned<AVFormatContext> Open(const std::filesystem::path& file) {
    av_log_set_level(AV_LOG_QUIET);  // a damaged file is the caller's matter, not the terminal's
    AVFormatContext* context = nullptr;
    const AVInputFormat* format = av_find_input_format("qdraw_pipe");
    if (!format || avformat_open_input(&context, file.c_str(), format, nullptr) < 0) return nullptr;
    return Owned<AVFormatContext>(context);
}

Owned<AVFrame> Decode(AVFormatContext& input) {
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_QDRAW);
    Owned<AVCodecContext> decoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    Owned<AVPacket> packet(av_packet_alloc());
    Owned<AVFrame> frame(av_frame_alloc());
    if (!decoder || !packet || !frame || avcodec_open2(decoder.get(), codec, nullptr) < 0) return nullptr;
    if (av_read_frame(&input, packet.get()) < 0) return nullptr;
    if (avcodec_send_packet(decoder.get(), packet.get()) < 0) return nullptr;
    if (avcodec_receive_frame(decoder.get(), frame.get()) < 0) return nullptr;
    return frame;
}

std::optional<RgbImage> ToRgb(const AVFrame& frame) {
    constexpr int kBytesPerPixel = 3;
    const int width = frame.width;
    const int height = frame.height;
    Owned<SwsContext> converter(sws_getContext(width, height, static_cast<AVPixelFormat>(frame.format), width, height,
                                               AV_PIX_FMT_RGB24, SWS_POINT, nullptr, nullptr, nullptr));
    if (!converter) return std::nullopt;
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBytesPerPixel;
    RgbImage image{width, height, std::vector<std::uint8_t>(size)};
    std::uint8_t* const rows[] = {image.bytes.data()};
    const int strides[] = {width * kBytesPerPixel};
    sws_scale(converter.get(), frame.data, frame.linesize, 0, height, rows, strides);
    return image;
}

}  // namespace

std::optional<RgbImage> ReadPict(const std::filesystem::path& file) {
    const Owned<AVFormatContext> input = Open(file);
    if (!input) return std::nullopt;
    const Owned<AVFrame> frame = Decode(*input);
    return frame ? ToRgb(*frame) : std::nullopt;
}
