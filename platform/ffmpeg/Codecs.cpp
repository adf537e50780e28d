#include "platform/ffmpeg/Codecs.h"

#include <algorithm>

#include "platform/System.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace {

using enum QualityScale::Unit;

constexpr int kAnyRate = 1001000;
constexpr int kMpeg4Rate = 65535;

// H.264 and H.265 can't halve the colours of an odd side, and no side is ever changed; ProRes with halved colours comes
// out wrong at odd widths. The muxer writes other layouts of uncompressed frames than this one wrongly, and says nothing.
constexpr Codec kCodecs[] = {
    {MovieCodec::H264, "H.264", "libx264", AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV444P, AVCOL_RANGE_MPEG, AVCOL_SPC_BT709,
     false, {RateFactor, 45, 15}, "preset=veryfast", 0, kAnyRate},
    {MovieCodec::H265, "H.265", "libx265", AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV444P, AVCOL_RANGE_MPEG, AVCOL_SPC_BT709,
     false, {RateFactor, 48, 18}, "preset=veryfast,x265-params=log-level=none", MKTAG('h', 'v', 'c', '1'), kAnyRate},
    {MovieCodec::Mpeg4, "MPEG-4", "mpeg4", AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV420P, AVCOL_RANGE_MPEG, AVCOL_SPC_BT709,
     false, {Quantiser, 31, 1}, "", 0, kMpeg4Rate},
    {MovieCodec::ProRes4444, "Apple ProRes 4444", "prores_ks", AV_PIX_FMT_YUV444P10, AV_PIX_FMT_YUV444P10,
     AVCOL_RANGE_MPEG, AVCOL_SPC_BT709, true, {}, "profile=4444", 0, kAnyRate},
    {MovieCodec::PhotoJpeg, "Photo - JPEG", "mjpeg", AV_PIX_FMT_YUV444P, AV_PIX_FMT_YUV444P, AVCOL_RANGE_JPEG,
     AVCOL_SPC_BT709, true, {Quantiser, 31, 1}, "", 0, kAnyRate},
    {MovieCodec::Png, "PNG", "png", AV_PIX_FMT_RGB24, AV_PIX_FMT_RGB24, AVCOL_RANGE_JPEG, AVCOL_SPC_RGB, true, {}, "",
     0, kAnyRate},
    {MovieCodec::Animation, "Animation", "qtrle", AV_PIX_FMT_RGB24, AV_PIX_FMT_RGB24, AVCOL_RANGE_JPEG, AVCOL_SPC_RGB,
     false, {}, "", 0, kAnyRate},
    {MovieCodec::Uncompressed, nullptr, "rawvideo", AV_PIX_FMT_RGB24, AV_PIX_FMT_RGB24, AVCOL_RANGE_JPEG, AVCOL_SPC_RGB,
     true, {}, "", 0, kAnyRate},
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
