#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/Module.h"
#include "platform/ffmpeg/PixelConversion.h"

namespace {

using Packets = std::span<const Owned<AVPacket>>;

/// A few frames, encoded in memory.
class Sample {
  public:
    Sample(const CompressionSettings& settings, int width, int height)
        : frameMaker_(FindCodec(settings.codec), width, height),
          encoder_(settings, width, height,
                   [this](const AVPacket& packet) { packets_.push_back(Own(av_packet_clone(&packet))); }) {}

    void Add(std::span<const std::uint32_t> pixels) { encoder_.Write(frameMaker_.Convert(pixels)); }
    void Finish() { encoder_.Finish(); }

    const AVCodecContext& Context() const { return encoder_.Context(); }
    /// One for each frame, in their order.
    Packets FramePackets() const { return packets_; }

  private:
    FrameMaker frameMaker_;
    std::vector<Owned<AVPacket>> packets_;
    Encoder encoder_;
};

Owned<AVCodecContext> OpenDecoder(const AVCodecContext& encoder) {
    constexpr const char* kStep = "opening the decoder";
    Owned<AVCodecContext> decoder = Own(avcodec_alloc_context3(avcodec_find_decoder(encoder.codec_id)));
    const Owned<AVCodecParameters> parameters = Own(avcodec_parameters_alloc());
    Check(avcodec_parameters_from_context(parameters.get(), &encoder), kStep);
    Check(avcodec_parameters_to_context(decoder.get(), parameters.get()), kStep);
    Check(avcodec_open2(decoder.get(), nullptr, nullptr), kStep);
    return decoder;
}

RgbImage DecodeFirst(const Sample& sample) {
    const Owned<AVCodecContext> decoder = OpenDecoder(sample.Context());
    const Owned<AVFrame> frame = Own(av_frame_alloc());
    for (const Owned<AVPacket>& packet : sample.FramePackets()) {
        Check(avcodec_send_packet(decoder.get(), packet.get()), "decoding");
        if (avcodec_receive_frame(decoder.get(), frame.get()) >= 0) return ToRgbImage(*frame);
    }
    Check(avcodec_send_packet(decoder.get(), nullptr), "decoding");
    Check(avcodec_receive_frame(decoder.get(), frame.get()), "decoding");
    return ToRgbImage(*frame);
}

double SumOfBytes(Packets packets) {
    double sum = 0;
    for (const Owned<AVPacket>& packet : packets)
        sum += packet->size;
    return sum;
}

/// Of those that are no key frames; 0 where all are.
double MeanBytes(Packets packets) {
    double sum = 0;
    double count = 0;
    for (const Owned<AVPacket>& packet : packets) {
        if ((packet->flags & AV_PKT_FLAG_KEY) != 0) continue;
        sum += packet->size;
        ++count;
    }
    return count > 0 ? sum / count : 0;
}

/// How few frames tell of a movie in which each picture is shown for a second: a run of frames for each.
struct Piece {
    static constexpr int kLongestRun = 10;
    static constexpr int kParts = 3;

    Piece(double frames, double rate)
        : run(static_cast<int>(std::clamp<double>(std::round(rate), 1, kLongestRun))),
          lastPart(kLongestRun / run * run),
          count(static_cast<int>(std::min<double>(frames, kParts * lastPart))),
          secondsPerRun(1 / std::min(rate, 1.0)) {}

    double SecondsUpTo(int frame) const {
        const int runs = frame / run;
        return runs * secondsPerRun;
    }

    int run;
    /// Whole runs, before which a key frame's detail is complete.
    int lastPart;
    int count;
    double secondsPerRun;
};

/// The bytes of all frames. The piece tells what a key frame takes, with the detail that some encoders add only in the
/// frames behind it, what a new picture, and what one that is shown again.
double BytesOf(double frames, double rate, int keyFrameDistance, const Piece& piece, Packets packets) {
    const auto upTo = [&](int count) { return static_cast<std::size_t>(std::min(count, piece.count - 1)); };
    const double usual = MeanBytes(packets.last(upTo(piece.lastPart)));
    const double repeated = MeanBytes(packets.last(upTo(piece.run / 2)));
    const double other = rate > piece.run ? (usual * piece.run + repeated * (rate - piece.run)) / rate : usual;
    const int head = std::min(keyFrameDistance, std::max(piece.count - piece.lastPart, 1));
    const double keyFrame = SumOfBytes(packets.first(static_cast<std::size_t>(head))) - usual * head;
    return keyFrame * std::ceil(frames / keyFrameDistance) + other * frames;
}

}  // namespace

SizeSupport SupportOf(MovieCodec codec, int width, int height) {
    const Encoder opened({.codec = codec}, width, height, [](const AVPacket&) {});
    const Codec& row = FindCodec(codec);
    return row.IsOtherSize(width, height) ? row.otherSizes.support : SizeSupport::Full;
}

std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                      const std::stop_token& stop) {
    constexpr int kFrames = 8;  // what an encoder spends on a picture depends on those that follow
    Sample sample(settings, image.width, image.height);
    for (int i = 0; i < kFrames; ++i) {
        if (stop.stop_requested()) return std::nullopt;
        sample.Add(image.pixels);
    }
    sample.Finish();
    return DecodeFirst(sample);
}

std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                             const std::stop_token& stop) {
    const Codec& codec = FindCodec(settings.codec);
    const double rate = settings.frameRate;
    const double frames = std::max(std::ceil(movie.seconds * rate), 0.0) + 1;
    const Piece piece(frames, rate);
    // Not in the very middle, where much may be level and upright, which takes least.
    const double latest = std::max(0.55 * movie.seconds, 0.0);
    const double start = std::clamp(movie.seconds - piece.SecondsUpTo(piece.count), 0.0, latest);
    std::optional<Sample> sample;
    for (int i = 0; i < piece.count; ++i) {
        if (stop.stop_requested()) return std::nullopt;
        const PixelView picture = movie.pictureAt(codec.IsIntraOnly() ? start : start + piece.SecondsUpTo(i));
        if (!sample) sample.emplace(settings, picture.width, picture.height);
        sample->Add(picture.pixels);
    }
    sample->Finish();
    constexpr int kHeader = 800;
    constexpr int kIndexEntry = 4;
    const double bytes = kHeader + sample->Context().extradata_size + kIndexEntry * frames +
                         BytesOf(frames, rate, codec.KeyFrameDistance(rate), piece, sample->FramePackets());
    return bytes / (frames / rate);
}
