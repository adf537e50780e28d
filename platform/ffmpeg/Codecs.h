#pragma once

#include <cstdint>
#include <vector>

#include "platform/MovieLibrary.h"

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

/// How frames are stored whose width and height aren't both multiples of these steps.
struct OtherSizes {
    int widthStep = 1;
    int heightStep = 1;
    AVPixelFormat format = AV_PIX_FMT_NONE;
    SizeSupport support = SizeSupport::Full;
};

/// All that is particular to a codec.
struct Codec {
    MovieCodec id;
    /// The type of the sample entry in the file, four characters.
    std::uint32_t tag;
    /// As the user sees it.
    const char* name;
    const char* encoder;
    AVPixelFormat format;
    OtherSizes otherSizes = {};
    ColourCoding colours;
    QualityScale quality = {};
    /// The encoder's own options: "name=value,name=value".
    const char* options = "";
    /// The largest term of a frame rate that the encoder takes.
    int rateLimit = 1001000;
    /// At most so many frames from one key frame to the next.
    int keyFrameLimit = 1;

    /// Whether every packet is a whole picture, so that it may be written more than once.
    bool IsIntraOnly() const { return keyFrameLimit == 1; }
    /// Frames from one key frame to the next.
    int KeyFrameDistance(double framesPerSecond) const;
    bool IsOtherSize(int width, int height) const {
        return width % otherSizes.widthStep != 0 || height % otherSizes.heightStep != 0;
    }
    /// The pixel format in which frames of that size are encoded.
    AVPixelFormat FormatFor(int width, int height) const {
        return IsOtherSize(width, height) ? otherSizes.format : format;
    }
};

const Codec& FindCodec(MovieCodec id);

/// Those that FFmpeg can write QuickTime files with here, as MovieLibrary has them.
std::vector<CodecChoice> InstalledCodecs();
