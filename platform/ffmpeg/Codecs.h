#pragma once

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/Ffmpeg.h"

/// What a quality from 0 to 100 means to an encoder: a value from `least` to `best`, in the encoder's unit.
struct QualityScale {
    enum class Unit { None, RateFactor, Quantiser };
    Unit unit = Unit::None;
    double least = 0;
    double best = 0;
};

/// How a codec stores colours. A reader that assumes another coding shows false colours.
struct ColourCoding {
    AVColorRange range;
    AVColorSpace matrix;
};
inline constexpr ColourCoding kRgb{AVCOL_RANGE_JPEG, AVCOL_SPC_RGB};

/// How pixels are stored in memory.
struct PixelLayout {
    AVPixelFormat format;
    ColourCoding colours;
};

/// How frames are stored whose sides aren't multiples of these steps.
struct OtherSizes {
    int widthStep = 1;
    int heightStep = 1;
    AVPixelFormat format = AV_PIX_FMT_NONE;
    SizeSupport support = SizeSupport::Full;
};

/// All that is peculiar to a codec.
struct Codec {
    MovieCodec id;
    std::uint32_t tag;    ///< the type of the sample entry in the file, four characters
    const char* name;     ///< what the user sees
    const char* encoder;  ///< its name in FFmpeg
    PixelLayout layout;
    OtherSizes otherSizes = {};
    QualityScale quality = {};
    /// The encoder's own options: "name=value,name=value".
    const char* options = "";
    /// The largest term of the fractions that the encoder takes as frame rates.
    int rateLimit = 1001000;
    /// The most frames from one key frame to the next. 1 if every frame is encoded on its own.
    int keyFrameLimit = 1;

    /// Whether every packet is a whole picture, so that it may be written again for an equal frame.
    bool IsIntraOnly() const { return keyFrameLimit == 1; }
    /// Frames from one key frame to the next.
    int KeyFrameDistance(double framesPerSecond) const;
    bool IsOtherSize(int width, int height) const {
        return width % otherSizes.widthStep != 0 || height % otherSizes.heightStep != 0;
    }
    /// How frames of that size are encoded.
    PixelLayout LayoutFor(int width, int height) const {
        return {IsOtherSize(width, height) ? otherSizes.format : layout.format, layout.colours};
    }
};

const Codec& FindCodec(MovieCodec id);

/// See MovieLibrary::Codecs.
std::vector<CodecChoice> InstalledCodecs();
