#pragma once

#include <cstdint>
#include <vector>

#include "platform/CompressionSettings.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

/// What a quality from 0 to 100 means to an encoder: a value between these two, in its own unit.
struct QualityScale {
    enum class Unit { None, RateFactor, Quantiser };
    Unit unit = Unit::None;
    double least = 0;
    double best = 0;
};

/// How the colours of a codec are stored; its pictures look false where a reader takes them for others.
struct ColourCoding {
    AVColorRange range;
    AVColorSpace matrix;
};
inline constexpr ColourCoding kRgb{AVCOL_RANGE_JPEG, AVCOL_SPC_RGB};

/// All that is particular to a codec.
struct Codec {
    MovieCodec id;
    /// The type of the sample entry in the file, four characters.
    std::uint32_t tag;
    /// As the user sees it; null when it isn't offered.
    const char* name;
    const char* encoder;
    AVPixelFormat format;
    /// The pixel format where a side is odd.
    AVPixelFormat oddFormat;
    ColourCoding colours;
    QualityScale quality = {};
    /// The encoder's own options: "name=value,name=value".
    const char* options = "";
    /// The largest term of a frame rate that the encoder takes.
    int rateLimit = 1001000;
    /// Frames from one key frame to the next.
    int keyFrameDistance = 1;
    /// Every packet is a whole picture, so it may be written more than once.
    bool isIntraOnly = false;
};

const Codec& FindCodec(MovieCodec id);

/// Those that FFmpeg has here and a user can choose, the usual one first.
std::vector<CodecChoice> InstalledCodecs();

/// Whether FFmpeg can write QuickTime files here, with any codec.
bool CanWriteMovies();

/// The pixel format in which frames of that size are encoded.
inline AVPixelFormat FormatFor(const Codec& codec, int width, int height) {
    return width % 2 == 0 && height % 2 == 0 ? codec.format : codec.oddFormat;
}
