#include "platform/ffmpeg/Codecs.h"

#include <algorithm>
#include <cmath>

namespace {

using enum QualityScale::Unit;

constexpr ColourCoding kVideo{AVCOL_RANGE_MPEG, AVCOL_SPC_BT709};
// JPEG readers assume this coding whatever the tags in the file say.
constexpr ColourCoding kJpeg{AVCOL_RANGE_JPEG, AVCOL_SPC_BT470BG};

// 4:2:0 chroma subsampling needs even sides, and frames are never resized. Many players can't show 4:4:4.
constexpr OtherSizes kWhereOdd{2, 2, AV_PIX_FMT_YUV444P, SizeSupport::PoorlyPlayed};

constexpr std::uint32_t Tag(const char (&type)[5]) { return MKTAG(type[0], type[1], type[2], type[3]); }

// keyFrameLimit keeps exact seeking fast. MPEG-4's is the lowest, because its rounding errors accumulate.
constexpr Codec kCodecs[] = {
    // For H.264 and H.265, a long look-ahead would take much memory without making a clock's movie smaller.
    // Nor would a finer motion search, as nothing moves. B-frames would make the movie larger and slower to
    // encode, and would leave gaps in a file that ends early.
    {.id = MovieCodec::H264,
     .tag = Tag("avc1"),
     .name = "H.264",
     .encoder = "libx264",
     .layout = {AV_PIX_FMT_YUV420P, kVideo},
     .otherSizes = kWhereOdd,
     .quality = {RateFactor, 40, 8},
     .options = "preset=veryfast,rc-lookahead=5,x264-params=subme=0:me=dia:weightp=0:bframes=0",
     .keyFrameLimit = 300},
    {.id = MovieCodec::H265,
     .tag = Tag("hvc1"),  // Apple's players accept no other tag for H.265
     .name = "H.265",
     .encoder = "libx265",
     .layout = {AV_PIX_FMT_YUV420P, kVideo},
     .otherSizes = kWhereOdd,
     .quality = {RateFactor, 42, 10},
     // Without "cutree=0", libx265 overruns its buffers when a side is as small as 33 pixels.
     .options = "preset=superfast,x265-params=log-level=none:frame-threads=1:rc-lookahead=5:bframes=0:cutree=0",
     .keyFrameLimit = 300},
    {.id = MovieCodec::Mpeg4,
     .tag = Tag("mp4v"),
     .name = "MPEG-4",
     .encoder = "mpeg4",
     .layout = {AV_PIX_FMT_YUV420P, kVideo},
     .quality = {Quantiser, 31, 1},
     // Choosing the shortest coding of each block makes a still clock 7 times smaller in 20% more time.
     .options = "mbd=bits",
     .rateLimit = 65535,
     .keyFrameLimit = 120},
    // ProRes 422 has wrong colours at odd widths. A fixed quantiser is 5 times faster than a search for one.
    {.id = MovieCodec::ProRes4444,
     .tag = Tag("ap4h"),
     .name = "Apple ProRes 4444",
     .encoder = "prores_ks",
     .layout = {AV_PIX_FMT_YUV444P10, kVideo},
     .options = "profile=4444,flags=+qscale,global_quality=236"},
    {.id = MovieCodec::PhotoJpeg,
     .tag = Tag("jpeg"),
     .name = "Photo - JPEG",
     .encoder = "mjpeg",
     .layout = {AV_PIX_FMT_YUV444P, kJpeg},
     .quality = {Quantiser, 31, 1}},
    {.id = MovieCodec::Png,
     .tag = Tag("png "),
     .name = "PNG",
     .encoder = "png",
     .layout = {AV_PIX_FMT_RGB24, kRgb},
     .options = "compression_level=1"},
    {.id = MovieCodec::Animation,
     .tag = Tag("rle "),
     .name = "Animation",
     .encoder = "qtrle",
     .layout = {AV_PIX_FMT_RGB24, kRgb},
     .keyFrameLimit = 300},
    // FFmpeg or GStreamer misreads rows of 3-byte pixels unless their length is a multiple of 4 bytes, but
    // never those of 4-byte pixels. The muxer writes most other formats wrongly without reporting an error.
    {.id = MovieCodec::Uncompressed,
     .tag = Tag("raw "),
     .name = "None",
     .encoder = "rawvideo",
     .layout = {AV_PIX_FMT_RGB24, kRgb},
     .otherSizes = {4, 1, AV_PIX_FMT_ARGB},
     .options = "threads=1"},
};

}  // namespace

const Codec& FindCodec(MovieCodec id) { return *std::ranges::find(kCodecs, id, &Codec::id); }

int Codec::KeyFrameDistance(double framesPerSecond) const {
    constexpr double kSeconds = 60;  // a key frame a minute, because players seek to key frames
    constexpr double kFewest = 30;   // the least distance, because a key frame is as large as 30 others
    const double wanted = std::max(kFewest, std::round(kSeconds * framesPerSecond));
    return static_cast<int>(std::min<double>(wanted, keyFrameLimit));
}

std::vector<CodecChoice> InstalledCodecs() {
    std::vector<CodecChoice> choices;
    if (!av_guess_format("mov", nullptr, nullptr)) return choices;
    for (const Codec& codec : kCodecs) {
        const bool isOffered = codec.id != MovieCodec::Uncompressed || choices.empty();
        if (isOffered && avcodec_find_encoder_by_name(codec.encoder))
            choices.push_back({codec.id, codec.name, codec.quality.unit != None});
    }
    return choices;
}
