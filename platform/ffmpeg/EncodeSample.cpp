#include "platform/ffmpeg/EncodeSample.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/Ffmpeg.h"
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
    const Owned<AVFrame> frame = Own(av_frame_alloc());
    if (!decoder) return std::nullopt;
    for (const Owned<AVPacket>& packet : packets) {
        if (avcodec_send_packet(decoder.get(), packet.get()) < 0) return std::nullopt;
        if (avcodec_receive_frame(decoder.get(), frame.get()) >= 0) return ToRgbImage(*frame);
    }
    avcodec_send_packet(decoder.get(), nullptr);
    if (avcodec_receive_frame(decoder.get(), frame.get()) < 0) return std::nullopt;
    return ToRgbImage(*frame);
}

/// Encodes `count` frames of one size, at least one. Nil when `stop` asks for the end; throws when that fails.
std::unique_ptr<Encoder> Encode(const CompressionSettings& settings, int count,
                                const std::function<PixelView(int)>& frameAt, const std::stop_token& stop,
                                Packets& packets) {
    std::unique_ptr<Encoder> encoder;
    std::optional<FrameMaker> frameMaker;
    for (int i = 0; i < count; ++i) {
        if (stop.stop_requested()) return nullptr;
        const PixelView view = frameAt(i);
        if (i == 0) {
            frameMaker.emplace(FindCodec(settings.codec), view.width, view.height);
            encoder = std::make_unique<Encoder>(settings, view.width, view.height, [&packets](const AVPacket& packet) {
                packets.push_back(Own(av_packet_clone(&packet)));
            });
        }
        if (const Owned<AVFrame> frame = frameMaker->Convert(view.pixels)) {
            encoder->Write(*frame);
        } else {
            encoder->Repeat();
        }
    }
    encoder->Finish();
    return encoder;
}

/// The sizes of a sample's frames, in the order in which they are shown.
class FrameSizes {
  public:
    explicit FrameSizes(const Packets& packets) : frames_(packets.size()) {
        for (const Owned<AVPacket>& packet : packets) {
            const auto shown = static_cast<std::size_t>(packet->pts);
            frames_.at(shown) = {packet->size, (packet->flags & AV_PKT_FLAG_KEY) != 0};
        }
    }

    /// Of the first `count` frames together.
    double Sum(int count) const {
        double sum = 0;
        for (int i = 0; i < count; ++i) {
            sum += frames_[static_cast<std::size_t>(i)].bytes;
        }
        return sum;
    }

    /// Of those among the last `count` that are no key frames, on the average; 0 where all are.
    double MeanOfLast(int count) const {
        double sum = 0;
        double others = 0;
        for (const Frame& frame : std::span(frames_).last(static_cast<std::size_t>(count))) {
            if (frame.isKey) continue;
            sum += frame.bytes;
            ++others;
        }
        return others > 0 ? sum / others : 0;
    }

  private:
    struct Frame {
        int bytes = 0;
        bool isKey = false;
    };
    std::vector<Frame> frames_;
};

}  // namespace

SizeSupport SupportOf(MovieCodec codec, int width, int height) {
    try {
        Encoder({.codec = codec}, width, height, [](const AVPacket&) {});
    } catch (const FfmpegError&) {
        return SizeSupport::Refused;
    }
    const bool isUsual = FormatFor(FindCodec(codec), width, height) == FindCodec(codec).format;
    return isUsual ? SizeSupport::Full : SizeSupport::RarelyPlayed;
}

std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                      const std::stop_token& stop) {
    constexpr int kFrames = 8;  // what an encoder spends on a picture depends on those that follow
    Packets packets;
    const auto encoder = Encode(
        settings, kFrames, [&](int) { return image; }, stop, packets);
    return encoder ? DecodeFirst(encoder->Context(), packets) : std::nullopt;
}

// Encodes a piece of the movie in which no picture is shown more than a few times. It tells what a key frame takes,
// with the detail that some encoders add only in the frames behind it, a new picture, and one that is shown again.
std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                             const std::stop_token& stop) {
    constexpr int kLongestRun = 10;
    constexpr int kPieces = 3;
    const Codec& codec = FindCodec(settings.codec);
    const double rate = settings.frameRate;
    const double frames = std::max(std::ceil(movie.seconds * rate), 0.0) + 1;
    const int run = static_cast<int>(std::clamp<double>(std::round(rate), 1, kLongestRun));
    const int lastPiece = kLongestRun / run * run;
    const int count = static_cast<int>(std::min<double>(frames, kPieces * lastPiece));
    const double secondsPerRun = 1 / std::min(rate, 1.0);
    // Not in the very middle, where much may be level and upright, which takes least.
    const double start =
        std::clamp(movie.seconds - count / run * secondsPerRun, 0.0, std::max(0.55 * movie.seconds, 0.0));
    const auto frameAt = [&](int i) {
        return movie.pictureAt(codec.isIntraOnly ? start : start + i / run * secondsPerRun);
    };
    Packets packets;
    const auto encoder = Encode(settings, count, frameAt, stop, packets);
    if (!encoder) return std::nullopt;

    const FrameSizes sizes(packets);
    const double usual = sizes.MeanOfLast(std::min(lastPiece, count - 1));
    const double repeated = sizes.MeanOfLast(run / 2);
    const double others = rate > run ? (usual * run + repeated * (rate - run)) / rate : usual;
    const int head = std::min(codec.keyFrameDistance, std::max(count - lastPiece, 1));
    const double keyFrame = sizes.Sum(head) - usual * head;
    const double keyFrames = std::ceil(frames / codec.keyFrameDistance);
    const AVCodecContext& context = encoder->Context();
    const double indexEntry = context.has_b_frames > 0 ? 12 : 4;
    const double size = context.extradata_size + keyFrame * keyFrames + (others + indexEntry) * frames;
    return size / (frames / rate);
}
