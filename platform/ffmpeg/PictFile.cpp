#include "platform/ffmpeg/PictFile.h"

#include "platform/ffmpeg/PixelConversion.h"

RgbImage ReadPictFile(const std::filesystem::path& file) {
    AVFormatContext* opened = nullptr;
    Check(avformat_open_input(&opened, file.c_str(), av_find_input_format("qdraw_pipe"), nullptr), "opening");
    const Owned<AVFormatContext> input(opened);
    const Owned<AVCodecContext> decoder = Own(avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_QDRAW)));
    const Owned<AVPacket> packet = Own(av_packet_alloc());
    const Owned<AVFrame> frame = Own(av_frame_alloc());
    decoder->max_pixels = kMostPixelsInFile;
    Check(avcodec_open2(decoder.get(), nullptr, nullptr), "opening");
    Check(av_read_frame(input.get(), packet.get()), "reading");
    Check(avcodec_send_packet(decoder.get(), packet.get()), "decoding");
    Check(avcodec_receive_frame(decoder.get(), frame.get()), "decoding");
    return ToRgbImage(*frame);
}
