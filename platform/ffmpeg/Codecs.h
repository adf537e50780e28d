#pragma once

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/Ffmpeg.h"

/// Maps a quality from 0 to 100 to the encoder's own parameter, which runs from `least` to `best`.
struct QualityScale {
    enum class Unit { None, RateFactor, Quantiser };
    Unit unit = Unit::None;
    double least = 0;
    double best = 0;
};

/// The colour range and matrix of stored pixels. A reader that assumes others shows false colours.
struct ColourCoding {
    AVColorRange range;
    AVColorSpace matrix;
};
inline constexpr ColourCoding kRgb{AVCOL_RANGE_JPEG, AVCOL_SPC_RGB};

/// The pixel format of frames in memory and their colour coding.
struct PixelLayout {
    AVPixelFormat format;
    ColourCoding colours;
};

/// The format used instead of the codec's layout when width or height isn't a multiple of its step.
struct OtherSizes {
    int widthStep = 1;
    int heightStep = 1;
    AVPixelFormat format = AV_PIX_FMT_NONE;
    SizeSupport support = SizeSupport::Full;
};

/// The properties that distinguish one codec from another.
struct Codec {
    MovieCodec id;
    std::uint32_t tag;    ///< the four-character type of the sample entry in the file
    const char* name;     ///< as the user sees it
    const char* encoder;  ///< FFmpeg's name of the encoder
    PixelLayout layout;
    OtherSizes otherSizes = {};
    QualityScale quality = {};
    /// Private options of the encoder, as "name=value,name=value".
    const char* options = "";
    /// The largest numerator or denominator that the encoder takes in a frame rate.
    int rateLimit = 1001000;
    /// The largest distance between key frames, in frames. It is 1 if every frame is a key frame.
    int keyFrameLimit = 1;

    /// Returns whether every frame is a key frame. A packet can then be repeated for an equal frame.
    bool IsIntraOnly() const { return keyFrameLimit == 1; }
    /// Returns the distance between key frames, in frames.
    int KeyFrameDistance(double framesPerSecond) const;
    bool IsOtherSize(int width, int height) const {
        return width % otherSizes.widthStep != 0 || height % otherSizes.heightStep != 0;
    }
    /// Returns the layout in which frames of that size are encoded.
    PixelLayout LayoutFor(int width, int height) const {
        return {IsOtherSize(width, height) ? otherSizes.format : layout.format, layout.colours};
    }
};

const Codec& FindCodec(MovieCodec id);

/// Implements MovieLibrary::Codecs.
std::vector<CodecChoice> InstalledCodecs();
