#include "platform/ffmpeg/Codecs.h"

#include <algorithm>

#include "platform/System.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace {

using enum QualityScale::Unit;

constexpr ColourCoding kRgb{AVCOL_RANGE_JPEG, AVCOL_SPC_RGB};
constexpr ColourCoding kVideo{AVCOL_RANGE_MPEG, AVCOL_SPC_BT709};
// Of JPEG itself; its readers look at no tag.
constexpr ColourCoding kJpeg{AVCOL_RANGE_JPEG, AVCOL_SPC_BT470BG};

constexpr std::uint32_t Tag(const char (&type)[5]) { return MKTAG(type[0], type[1], type[2], type[3]); }

constexpr Codec kCodecs[] = {
    // H.264 and H.265 can't halve the colours of an odd side, and no side is ever changed.
    {.id = MovieCodec::H264,
     .name = "H.264",
     .encoder = "libx264",
     .tag = Tag("avc1"),
     .format = AV_PIX_FMT_YUV420P,
     .oddFormat = AV_PIX_FMT_YUV444P,
     .colours = kVideo,
     .quality = {RateFactor, 45, 15},
     .options = "preset=veryfast"},
    {.id = MovieCodec::H265,
     .name = "H.265",
     .encoder = "libx265",
     .tag = Tag("hvc1"),  // the one form that Apple's players take
     .format = AV_PIX_FMT_YUV420P,
     .oddFormat = AV_PIX_FMT_YUV444P,
     .colours = kVideo,
     .quality = {RateFactor, 48, 18},
     .options = "preset=veryfast,x265-params=log-level=none"},
    {.id = MovieCodec::Mpeg4,
     .name = "MPEG-4",
     .encoder = "mpeg4",
     .tag = Tag("mp4v"),
     .format = AV_PIX_FMT_YUV420P,
     .oddFormat = AV_PIX_FMT_YUV420P,
     .colours = kVideo,
     .quality = {Quantiser, 31, 1},
     .rateLimit = 65535},
    // Halved colours come out wrong at odd widths.
    {.id = MovieCodec::ProRes4444,
     .name = "Apple ProRes 4444",
     .encoder = "prores_ks",
     .tag = Tag("ap4h"),
     .format = AV_PIX_FMT_YUV444P10,
     .oddFormat = AV_PIX_FMT_YUV444P10,
     .colours = kVideo,
     .standsAlone = true,
     .options = "profile=4444"},
    {.id = MovieCodec::PhotoJpeg,
     .name = "Photo - JPEG",
     .encoder = "mjpeg",
     .tag = Tag("jpeg"),
     .format = AV_PIX_FMT_YUV444P,
     .oddFormat = AV_PIX_FMT_YUV444P,
     .colours = kJpeg,
     .standsAlone = true,
     .quality = {Quantiser, 31, 1}},
    {.id = MovieCodec::Png,
     .name = "PNG",
     .encoder = "png",
     .tag = Tag("png "),
     .format = AV_PIX_FMT_RGB24,
     .oddFormat = AV_PIX_FMT_RGB24,
     .colours = kRgb,
     .standsAlone = true},
    {.id = MovieCodec::Animation,
     .name = "Animation",
     .encoder = "qtrle",
     .tag = Tag("rle "),
     .format = AV_PIX_FMT_RGB24,
     .oddFormat = AV_PIX_FMT_RGB24,
     .colours = kRgb},
    // The muxer writes most other layouts of uncompressed frames wrongly, and says nothing.
    {.id = MovieCodec::Uncompressed,
     .name = nullptr,
     .encoder = "rawvideo",
     .tag = Tag("raw "),
     .format = AV_PIX_FMT_RGB24,
     .oddFormat = AV_PIX_FMT_RGB24,
     .colours = kRgb,
     .standsAlone = true},
};

bool IsInstalled(const Codec& codec) { return avcodec_find_encoder_by_name(codec.encoder) != nullptr; }

bool HasMuxer() { return av_guess_format("mov", nullptr, nullptr) != nullptr; }

}  // namespace

const Codec& FindCodec(MovieCodec id) { return *std::ranges::find(kCodecs, id, &Codec::id); }

std::vector<CodecChoice> InstalledCodecs() {
    std::vector<CodecChoice> choices;
    for (const Codec& codec : kCodecs) {
        if (codec.name && HasMuxer() && IsInstalled(codec)) {
            choices.push_back({codec.id, codec.name, codec.quality.unit != None});
        }
    }
    return choices;
}

bool System::Quicktime::Installed() { return HasMuxer() && std::ranges::any_of(kCodecs, IsInstalled); }
