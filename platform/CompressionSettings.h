#pragma once

#include <string>

/// What the frames of a movie are encoded as.
enum class MovieCodec { Uncompressed = 1, H264, H265, Mpeg4, ProRes4444, PhotoJpeg, Png, Animation };

/// How the frames of a movie are encoded. A plain value.
struct CompressionSettings {
    MovieCodec codec = MovieCodec::Uncompressed;
    /// From 0 (least) to 100 (best). A codec that has no quality takes no notice of it.
    int quality = 75;
    /// Frames per second.
    double frameRate = 1;

    bool operator==(const CompressionSettings&) const = default;
};

/// From here on a rate can be chosen, in frames per second: a frame a minute.
constexpr double kLowestFrameRate = 0.016666666666666;

/// A codec as a user chooses it.
struct CodecChoice {
    MovieCodec codec;
    std::string name;
    bool hasQuality;
};

/// How a codec gets on with frames of a certain size. What is rarely played is made in a way that many players lack.
enum class SizeSupport { Refused, RarelyPlayed, Full };
