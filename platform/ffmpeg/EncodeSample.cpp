#include "platform/ffmpeg/EncodeSample.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/Ffmpeg.h"
#include "platform/ffmpeg/PixelConversion.h"

namespace {

/// A few frames, encoded in memory.
class Sample {
  public:
    Sample(const CompressionSettings& settings, int width, int height)
        : frameMaker_(FindCodec(settings.codec), width, height),
          encoder_(settings, width, height,
                   [this](const AVPacket& packet) { packets_.push_back(Own(av_packet_clone(&packet))); }) {}

    void Add(std::span<const std::uint32_t> pixels) {
        if (const Owned<AVFrame> frame = frameMaker_.Convert(pixels)) {
            encoder_.Write(*frame);
        } else {
            encoder_.Repeat();
        }
    }
    void Finish() { encoder_.Finish(); }

    const AVCodecContext& Context() const { return encoder_.Context(); }
    const std::vector<Owned<AVPacket>>& Packets() const { return packets_; }

  private:
    FrameMaker frameMaker_;
    std::vector<Owned<AVPacket>> packets_;
    Encoder encoder_;
};

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

std::optional<RgbImage> DecodeFirst(const Sample& sample) {
    const Owned<AVCodecContext> decoder = OpenDecoder(sample.Context());
    const Owned<AVFrame> frame = Own(av_frame_alloc());
    if (!decoder) return std::nullopt;
    for (const Owned<AVPacket>& packet : sample.Packets()) {
        if (avcodec_send_packet(decoder.get(), packet.get()) < 0) return std::nullopt;
        if (avcodec_receive_frame(decoder.get(), frame.get()) >= 0) return ToRgbImage(*frame);
    }
    avcodec_send_packet(decoder.get(), nullptr);
    if (avcodec_receive_frame(decoder.get(), frame.get()) < 0) return std::nullopt;
    return ToRgbImage(*frame);
}

/// The sizes of a sample's frames, in the order in which they are shown.
class FrameSizes {
  public:
    explicit FrameSizes(const Sample& sample) : frames_(sample.Packets().size()) {
        for (const Owned<AVPacket>& packet : sample.Packets()) {
            const bool isKey = (packet->flags & AV_PKT_FLAG_KEY) != 0;
            frames_.at(static_cast<std::size_t>(packet->pts)) = {packet->size, isKey};
        }
    }

    /// Of the first `count` frames together.
    double SumOfFirst(int count) const {
        double sum = 0;
        for (const Frame& frame : std::span(frames_).first(static_cast<std::size_t>(count))) {
            sum += frame.bytes;
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
double BytesOf(double frames, double rate, int keyFrameDistance, const Piece& piece, const FrameSizes& sizes) {
    const double usual = sizes.MeanOfLast(std::min(piece.lastPart, piece.count - 1));
    const double repeated = sizes.MeanOfLast(piece.run / 2);
    const double other = rate > piece.run ? (usual * piece.run + repeated * (rate - piece.run)) / rate : usual;
    const int head = std::min(keyFrameDistance, std::max(piece.count - piece.lastPart, 1));
    const double keyFrame = sizes.SumOfFirst(head) - usual * head;
    return keyFrame * std::ceil(frames / keyFrameDistance) + other * frames;
}

}  // namespace

SizeSupport SupportOf(MovieCodec codec, int width, int height) {
    const Encoder opened({.codec = codec}, width, height, [](const AVPacket&) {});
    const bool isUsual = FormatFor(FindCodec(codec), width, height) == FindCodec(codec).format;
    return isUsual ? SizeSupport::Full : SizeSupport::RarelyPlayed;
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
        const PixelView picture = movie.pictureAt(codec.isIntraOnly ? start : start + piece.SecondsUpTo(i));
        if (!sample) sample.emplace(settings, picture.width, picture.height);
        sample->Add(picture.pixels);
    }
    sample->Finish();
    const AVCodecContext& context = sample->Context();
    constexpr int kHeader = 800;
    const double indexEntry = context.has_b_frames > 0 ? 12 : 4;
    const double bytes = kHeader + context.extradata_size + indexEntry * frames +
                         BytesOf(frames, rate, codec.keyFrameDistance, piece, FrameSizes(*sample));
    return bytes / (frames / rate);
}
