#include "platform/ffmpeg/SizeEstimate.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/ffmpeg/EncodedSample.h"

// A few frames are encoded, and the sizes of their packets tell what the movie's take. An example: H.264,
// 320 x 240 pixels, 30 frames a second, 20 seconds, so 601 frames.
// - The excerpt has 3 pictures in runs of 10 frames. Its packets have 5839 + 231 + 35 + 7 x 16 bytes for a key
//   frame, its detail and repeats, and 44 + 9 x 16, then 50 + 9 x 16 for a new picture and its repeats.
// - In the last run a frame takes (50 + 9 x 16) / 10 = 19.4 on average. The movie's runs have 20 repeats more,
//   so there it takes (10 x 19.4 + 20 x 16) / 30 = 17.13.
// - The 20 frames before it take 6405, where at 19.4 each it would be 388. So a key frame takes 6017 more.
// - Key frames are 300 frames apart. So all packets take 3 x 6017 + 601 x 17.13 = 28 348.
// - Headers and index take 800 + 40 + 4 x 601 = 3244. So the file has 31 592 bytes (in truth it has 31 574), and
//   each of its 601 / 30 seconds takes 1577.

namespace {

using Packets = std::span<const Owned<AVPacket>>;

/// Which frames are encoded to estimate a movie whose picture changes once a second: for each picture a run
/// of equal frames, as long as in the movie, but of 10 frames at most.
struct Excerpt {
    static constexpr int kLongestRun = 10;
    double frames;  // of the movie
    double rate;
    int run = static_cast<int>(std::clamp<double>(std::round(rate), 1, kLongestRun));
    int lastPart = kLongestRun / run * run;  // whole runs; by then a key frame's detail is complete
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

/// The mean of the packets that aren't key frames; 0 if all are.
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

/// The bytes of all packets of the movie, from those of the excerpt.
double BytesOfPackets(const Excerpt& excerpt, Packets packets, int keyFrameDistance) {
    const auto& [frames, rate, run, lastPart, count] = excerpt;
    const auto upTo = [rest = count - 1](int most) { return static_cast<std::size_t>(std::min(most, rest)); };
    const double mean = MeanBytes(packets.last(upTo(lastPart)));
    const double repeat = MeanBytes(packets.last(upTo(run / 2)));  // no new picture is in the latter half
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
    // Not the very middle: there the clock's edges may be level and upright, which takes the fewest bytes.
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
    constexpr int kHeaders = 800;  // as MovieFile has them
    constexpr int kIndexEntry = 4;
    const double bytes = kHeaders + sample->HeaderBytes() + kIndexEntry * frames +
                         BytesOfPackets(excerpt, sample->Packets(), codec.KeyFrameDistance(rate));
    return bytes / (frames / rate);
}
