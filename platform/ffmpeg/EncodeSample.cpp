#include "platform/ffmpeg/EncodeSample.h"

#include <vector>

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/Owned.h"
#include "platform/ffmpeg/PixelConversion.h"

namespace {

using Packets = std::vector<Owned<AVPacket>>;

Owned<AVCodecContext> OpenDecoder(const AVCodecContext& encoder) {
    const AVCodec* const codec = avcodec_find_decoder(encoder.codec_id);
    Owned<AVCodecContext> decoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    AVCodecParameters* parameters = avcodec_parameters_alloc();
    const bool isOpen = decoder && parameters && avcodec_parameters_from_context(parameters, &encoder) >= 0 &&
                        avcodec_parameters_to_context(decoder.get(), parameters) >= 0 &&
                        avcodec_open2(decoder.get(), codec, nullptr) >= 0;
    avcodec_parameters_free(&parameters);
    return isOpen ? std::move(decoder) : nullptr;
}

std::optional<RgbImage> DecodeFirst(const AVCodecContext& encoder, const Packets& packets) {
    const Owned<AVCodecContext> decoder = OpenDecoder(encoder);
    const Owned<AVFrame> frame(av_frame_alloc());
    if (!decoder || !frame) return std::nullopt;
    for (const Owned<AVPacket>& packet : packets) {
        if (avcodec_send_packet(decoder.get(), packet.get()) < 0) return std::nullopt;
        if (avcodec_receive_frame(decoder.get(), frame.get()) >= 0) return ToRgbImage(*frame);
    }
    avcodec_send_packet(decoder.get(), nullptr);
    if (avcodec_receive_frame(decoder.get(), frame.get()) < 0) return std::nullopt;
    return ToRgbImage(*frame);
}

double BytesIn(const Packets& packets) {
    double sum = 0;
    for (const Owned<AVPacket>& packet : packets) {
        sum += packet->size;
    }
    return sum;
}

}  // namespace

std::optional<EncodedSample> EncodeSample(const CompressionSettings& settings, std::span<const PixelView> frames,
                                          const std::stop_token& stop) {
    if (frames.empty()) return std::nullopt;
    const auto [width, height, ignored] = frames.front();
    Packets packets;
    const auto encoder = Encoder::Open(settings, width, height, [&packets, &stop](AVPacket& packet) {
        packets.emplace_back(av_packet_clone(&packet));
        return packets.back() != nullptr && !stop.stop_requested();
    });
    FrameMaker frameMaker(FindCodec(settings.codec), width, height);
    Owned<AVFrame> frame;
    for (const PixelView& view : frames) {
        if (stop.stop_requested() || !encoder) return std::nullopt;
        if (frameMaker.Take(view.pixels)) frame = frameMaker.Make();
        if (!frame || !encoder->Write(*frame)) return std::nullopt;
    }
    if (!encoder->Finish()) return std::nullopt;
    std::optional<RgbImage> first = DecodeFirst(encoder->Context(), packets);
    if (!first) return std::nullopt;
    return EncodedSample{std::move(*first), BytesIn(packets) / static_cast<double>(frames.size())};
}
