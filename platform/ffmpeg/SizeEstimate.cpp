#include "platform/ffmpeg/SizeEstimate.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/ffmpeg/EncodedSample.h"

// The estimate encodes an excerpt and extrapolates from its packet sizes. An example, with sizes in bytes:
// H.264, 320 x 240 pixels, 30 frames a second, 20 seconds, so 601 frames.
// - The excerpt shows 3 pictures for 10 frames each (a run). The first run takes 5839 (key frame) + 231 + 35
//   (refinements) + 7 x 16 (repeats), the second 44 (new picture) + 9 x 16 (repeats), the third 50 + 9 x 16.
// - A frame of the third run takes (50 + 9 x 16) / 10 = 19.4 on average. A run of the movie has 20 more
//   repeats, so a frame of the movie takes (10 x 19.4 + 20 x 16) / 30 = 17.13 on average.
// - The first two runs take 6405 instead of 20 x 19.4 = 388. A key frame therefore adds 6017.
// - With a key frame every 300 frames, the movie has 3. Its packets take 3 x 6017 + 601 x 17.13 = 28 348.
// - Headers and index take 800 + 40 + 4 x 601 = 3244. The estimate is 31 592 for the file (the actual size is
//   31 574) and 1577 for each of its 601 / 30 seconds.

namespace {

using Packets = std::span<const Owned<AVPacket>>;

/// The frames to encode for an estimate. The movie's picture is assumed to change once a second, or with
/// every frame at lower rates. Each picture is encoded as often as it is shown, but at most 10 times (a run).
struct Excerpt {
    static constexpr int kLongestRun = 10;
    double frames;  // the number of frames in the movie
    double rate;
    int run = static_cast<int>(std::clamp<double>(std::round(rate), 1, kLongestRun));
    int lastPart = kLongestRun / run * run;  // in frames; these runs no longer refine the key frame
    int count = static_cast<int>(std::min<double>(frames, 3 * lastPart));

    double SecondsUpTo(int frame) const {
        const int runs = frame / run;
        return runs * (1 / std::min(rate, 1.0));
    }
};

double SumOfBytes(Packets packets) {
    const auto add = [](double sum, const Owned<AVPacket>& packet) { return sum + packet->size; };
    return std::accumulate(packets.begin(), packets.end(), 0.0, add);
}

/// Returns the mean size of the packets that aren't key frames, or 0 if all are key frames.
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

/// Extrapolates the total size of the movie's packets from the packets of the excerpt.
double BytesOfPackets(const Excerpt& excerpt, Packets packets, int keyFrameDistance) {
    const auto& [frames, rate, run, lastPart, count] = excerpt;
    const auto upTo = [rest = count - 1](int most) { return static_cast<std::size_t>(std::min(most, rest)); };
    const double mean = MeanBytes(packets.last(upTo(lastPart)));
    const double repeat = MeanBytes(packets.last(upTo(run / 2)));  // the end of a run has only repeats
    const double usual = rate > run ? (mean * run + repeat * (rate - run)) / rate : mean;
    const int head = std::min(keyFrameDistance, std::max(count - lastPart, 1));
    const double keyFrameExtra = SumOfBytes(packets.first(static_cast<std::size_t>(head))) - mean * head;
    return keyFrameExtra * std::ceil(frames / keyFrameDistance) + usual * frames;
}

}  // namespace

std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                             const std::stop_token& stop) {
    const Codec& codec = FindCodec(settings.codec);
    const double rate = settings.frameRate;
    const double frames = std::max(std::ceil(movie.seconds * rate), 0.0) + 1;
    const Excerpt excerpt{frames, rate};
    // Avoids the exact middle, where the wedge's edges may be axis-aligned and compress unusually well.
    const double latest = std::max(0.55 * movie.seconds, 0.0);
    const double start = std::clamp(movie.seconds - excerpt.SecondsUpTo(excerpt.count), 0.0, latest);
    std::optional<EncodedSample> sample;
    for (int i = 0; i < excerpt.count; ++i) {
        if (stop.stop_requested()) return std::nullopt;
        const double seconds = codec.IsIntraOnly() ? start : start + excerpt.SecondsUpTo(i);
        const PixelView picture = movie.pictureAt(seconds);
        if (!sample) sample.emplace(settings, picture.width, picture.height);
        sample->Add(picture.pixels);
    }
    sample->Finish();
    constexpr int kHeaders = 800;  // the typical size of the headers that MovieFile writes
    constexpr int kIndexEntry = 4;
    const double bytes = kHeaders + sample->HeaderBytes() + kIndexEntry * frames +
                         BytesOfPackets(excerpt, sample->Packets(), codec.KeyFrameDistance(rate));
    return bytes / (frames / rate);
}
