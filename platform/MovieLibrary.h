#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

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

/// A codec as a user chooses it.
struct CodecChoice {
    MovieCodec codec;
    std::string name;
    bool hasQuality;
};

/// How a codec gets on with frames of a certain size. What is rarely played is made in a way that many players lack.
enum class SizeSupport { Refused, RarelyPlayed, Full };

/// Pixels as 0xFFRRGGBB, `width` times `height` of them, row by row without padding.
struct PixelView {
    int width = 0;
    int height = 0;
    std::span<const std::uint32_t> pixels;
};

/// An image of `width` times `height` pixels, three bytes each (red, green, blue), row by row without padding.
struct RgbImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;
};

/// What a movie is going to show.
struct MovieContent {
    double seconds = 0;
    /// The picture at so many seconds from the beginning; its pixels stay until the next call.
    std::function<PixelView(double seconds)> pictureAt;
};

/// A file whose header tells of more than this is taken for a damaged one.
constexpr std::int64_t kMostPixelsInFile = std::int64_t{4096} * 4096;

/// What stands behind an EditableMovie and its track, whose operations these are; their end is its end. The settings of
/// the track are set before the first frame only.
class MovieWriter {
  public:
    virtual ~MovieWriter() = default;

    virtual void SaveOnClose(bool value) noexcept = 0;
    /// False when there can't be such a track, or there is one.
    virtual bool AddTrack(int width, int height, double frameRate) noexcept = 0;
    virtual const CompressionSettings& Settings() const noexcept = 0;
    virtual void Settings(const CompressionSettings& settings) noexcept = 0;
    virtual void Append(const PixelView& frame) noexcept = 0;
};

/// What movies are written with, and pictures read that the toolkit can't read itself. It lives in a module of its own,
/// since it brings so many libraries with it that loading them would be most of the program's start. This base class is
/// that of a machine which has none. Any thread. Nothing is thrown: what fails for want of memory just fails.
class MovieLibrary {
  public:
    /// The codecs that this machine can write, as they are offered, the usual one first; none where movies can't be
    /// written. Uncompressed, which needs no choice, only if it is all there is.
    virtual std::vector<CodecChoice> Codecs() const noexcept { return {}; }

    /// Asks the codec's encoder.
    virtual SizeSupport Supports(MovieCodec, int /*width*/, int /*height*/) const noexcept {
        return SizeSupport::Refused;
    }

    /// A new empty file in place of what was there; nil when it can't be made.
    virtual std::shared_ptr<MovieWriter> Create(const std::filesystem::path&) const noexcept { return nullptr; }

    /// How an image looks as the first frame of a movie, encoded and decoded again. Nothing when that can't be done or
    /// `stop` asks for the end, which is looked at before each of the few frames that are encoded.
    virtual std::optional<RgbImage> EncodePreview(const CompressionSettings&, const PixelView&,
                                                  const std::stop_token& /*stop*/) const noexcept {
        return std::nullopt;
    }

    /// About how many bytes the file of a movie takes for each second of it, its pictures changing about once a second.
    /// Encodes a short piece. Nothing as above, or when `pictureAt` throws.
    virtual std::optional<double> EstimateBytesPerSecond(const CompressionSettings&, const MovieContent&,
                                                         const std::stop_token& /*stop*/) const noexcept {
        return std::nullopt;
    }

    /// The image in a PICT file; nothing when the file can't be read or is none.
    virtual std::optional<RgbImage> ReadPict(const std::filesystem::path&) const noexcept { return std::nullopt; }

    /// The one of this machine. The first call opens the module.
    static const MovieLibrary& Installed();
};

/// The one function that the module gives out.
extern "C" const MovieLibrary* MovieLibraryOfModule();
