#include "platform/ffmpeg/Timing.h"

#include <algorithm>
#include <cstdint>
#include <limits>

AVRational ExactRate(double framesPerSecond, int limit) { return av_d2q(framesPerSecond, limit); }

int TrackTimescale(AVRational rate) {
    // Some readers round to a 600th of a second, so a track isn't coarser than that where its ticks still fit the 32
    // bits that all readers know.
    constexpr int kUsualTimescale = 600;
    constexpr std::int64_t kFramesOfALongMovie = 60 * 60 * 30 + 1;
    const std::int64_t wanted = (kUsualTimescale + rate.num - 1) / rate.num;
    const std::int64_t fitting = std::numeric_limits<std::int32_t>::max() / (rate.den * kFramesOfALongMovie);
    return rate.num * static_cast<int>(std::max<std::int64_t>(1, std::min(wanted, fitting)));
}
