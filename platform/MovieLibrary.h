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
    int quality = 75;      ///< from 0 (least) to 100 (best); codecs without a quality ignore it
    double frameRate = 1;  ///< frames per second

    bool operator==(const CompressionSettings&) const = default;
};

/// A codec that a user can choose.
struct CodecChoice {
    MovieCodec codec;
    std::string name;
    bool hasQuality;
};

/// How well a codec suits a size of frames. Many players can't show the form that PoorlyPlayed ones take.
enum class SizeSupport { Refused, PoorlyPlayed, Full };

/// Pixels as 0xFFRRGGBB, `width` times `height` of them, row by row without padding.
struct PixelView {
    int width = 0;
    int height = 0;
    std::span<const std::uint32_t> pixels;
};

/// An image of `width` times `height` pixels of three bytes (red, green, blue), row by row without padding.
struct RgbImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;
};

/// What a movie is going to show.
struct MovieContent {
    double seconds = 0;
    /// Gives the picture at so many seconds from the beginning. Its pixels are valid until the next call.
    std::function<PixelView(double seconds)> pictureAt;
};

/// A picture file that claims to have more pixels is taken for a damaged one.
constexpr std::int64_t kMostPixelsInFile = std::int64_t{4096} * 4096;

/// Implements an EditableMovie and its track, and is destroyed with the last of them.
class MovieWriter {
  public:
    /// Closes the file, and waits until all frames are written.
    virtual ~MovieWriter() = default;

    virtual void SaveOnClose(bool value) noexcept = 0;
    /// False when the file can't have such a track, or has one already.
    virtual bool AddTrack(int width, int height, double frameRate) noexcept = 0;
    virtual const CompressionSettings& Settings() const noexcept = 0;
    /// Before the first frame only.
    virtual void Settings(const CompressionSettings& settings) noexcept = 0;
    virtual void Append(const PixelView& frame) noexcept = 0;
};

/// Writes movies, and reads pictures in formats that Qt lacks. It is in a module of its own, because loading
/// all the libraries that it needs would take most of the program's start. This base class serves a machine
/// without the module. Any thread. Nothing is thrown: to run out of memory is a failure like any other.
class MovieLibrary {
  public:
    /// The codecs that this machine can write, in the order in which they are offered; none where movies
    /// can't be written. Uncompressed, which needs no choice, is among them only if it is the only one.
    virtual std::vector<CodecChoice> Codecs() const noexcept { return {}; }

    /// Asks the codec's encoder whether it takes frames of that size.
    virtual SizeSupport Supports(MovieCodec, int /*width*/, int /*height*/) const noexcept {
        return SizeSupport::Refused;
    }

    /// Creates the file, or empties the one that is there. Nil when that fails.
    virtual std::shared_ptr<MovieWriter> Create(const std::filesystem::path&) const noexcept { return nullptr; }

    /// How an image looks as the first frame of a movie: encoded and decoded again. Nothing when that fails
    /// or a stop is requested, which is checked before each of the few frames that are encoded.
    virtual std::optional<RgbImage> EncodePreview(const CompressionSettings&, const PixelView&,
                                                  const std::stop_token& /*stop*/) const noexcept {
        return std::nullopt;
    }

    /// About how many bytes the file of a movie takes for each of its seconds, if its picture changes once a
    /// second. Encodes up to 30 frames. Nothing as above, or when `pictureAt` throws.
    virtual std::optional<double> EstimateBytesPerSecond(const CompressionSettings&, const MovieContent&,
                                                         const std::stop_token& /*stop*/) const noexcept {
        return std::nullopt;
    }

    /// The image in a PICT file. Nothing when the file can't be read or isn't one.
    virtual std::optional<RgbImage> ReadPict(const std::filesystem::path&) const noexcept { return std::nullopt; }

    /// The library of this machine. The first call opens the module.
    static const MovieLibrary& Installed();
};

/// The only function that the module exports. Its result lives as long as the process.
extern "C" const MovieLibrary* MovieLibraryOfModule();
