#include "platform/ffmpeg/EncodedSample.h"

namespace {

Owned<AVCodecContext> OpenDecoder(const AVCodecContext& encoder) {
    constexpr const char* kStep = "opening the decoder";
    Owned<AVCodecContext> decoder = Own(avcodec_alloc_context3(avcodec_find_decoder(encoder.codec_id)));
    const Owned<AVCodecParameters> parameters = Own(avcodec_parameters_alloc());
    Check(avcodec_parameters_from_context(parameters.get(), &encoder), kStep);
    Check(avcodec_parameters_to_context(decoder.get(), parameters.get()), kStep);
    Check(avcodec_open2(decoder.get(), nullptr, nullptr), kStep);
    return decoder;
}

}  // namespace

EncodedSample::EncodedSample(const CompressionSettings& settings, int width, int height)
    : frameMaker_(FindCodec(settings.codec), width, height),
      encoder_(settings, width, height,
               [this](const AVPacket& packet) { packets_.push_back(Own(av_packet_clone(&packet))); }) {}

RgbImage EncodedSample::DecodeFirst() const {
    constexpr const char* kStep = "decoding";
    const Owned<AVCodecContext> decoder = OpenDecoder(encoder_.Context());
    const Owned<AVFrame> frame = Own(av_frame_alloc());
    for (const Owned<AVPacket>& packet : packets_) {
        Check(avcodec_send_packet(decoder.get(), packet.get()), kStep);
        if (avcodec_receive_frame(decoder.get(), frame.get()) >= 0) return ToRgbImage(*frame);
    }
    Check(avcodec_send_packet(decoder.get(), nullptr), kStep);
    Check(avcodec_receive_frame(decoder.get(), frame.get()), kStep);
    return ToRgbImage(*frame);
}

std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                      const std::stop_token& stop) {
    constexpr int kFrames = 8;  // encoders spend more bits on a picture that later frames repeat
    EncodedSample sample(settings, image.width, image.height);
    for (int i = 0; i < kFrames; ++i) {
        if (stop.stop_requested()) return std::nullopt;
        sample.Add(image.pixels);
    }
    sample.Finish();
    return sample.DecodeFirst();
}
