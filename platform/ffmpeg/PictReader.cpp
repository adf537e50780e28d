#include "platform/ffmpeg/PictReader.h"

#include "platform/ffmpeg/Owned.h"
#include "platform/ffmpeg/PixelConversion.h"

namespace {

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
    if (decoder) decoder->max_pixels = kMostPixelsInFile;
    if (!decoder || !packet || !frame || avcodec_open2(decoder.get(), codec, nullptr) < 0) return nullptr;
    if (av_read_frame(&input, packet.get()) < 0) return nullptr;
    if (avcodec_send_packet(decoder.get(), packet.get()) < 0) return nullptr;
    if (avcodec_receive_frame(decoder.get(), frame.get()) < 0) return nullptr;
    return frame;
}

}  // namespace

std::optional<RgbImage> ReadPict(const std::filesystem::path& file) {
    const Owned<AVFormatContext> input = Open(file);
    if (!input) return std::nullopt;
    const Owned<AVFrame> frame = Decode(*input);
    return frame ? ToRgbImage(*frame) : std::nullopt;
}
