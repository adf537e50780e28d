#pragma once

#include <cstdint>

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

/// All that is particular to a codec.
struct Codec {
    MovieCodec id;
    /// As the user sees it; null when it isn't offered.
    const char* name;
    const char* encoder;
    AVPixelFormat format;
    /// The pixel format where a side is odd.
    AVPixelFormat oddFormat;
    AVColorRange range;
    AVColorSpace matrix;
    /// Every packet is a whole picture, so it may be written more than once.
    bool standsAlone;
    QualityScale quality;
    /// The encoder's own options: "name=value,name=value".
    const char* options;
    /// The type of the sample entry; 0 where the muxer's choice is the right one.
    std::uint32_t tag;
    /// The largest term of a frame rate that the encoder takes.
    int rateLimit;
};

const Codec& FindCodec(MovieCodec id);
