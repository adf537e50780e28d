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

enum class MovieCodec { Uncompressed = 1, H264, H265, Mpeg4, ProRes4444, PhotoJpeg, Png, Animation };

/// The settings with which a movie's frames are encoded.
struct CompressionSettings {
    MovieCodec codec = MovieCodec::Uncompressed;
    int quality = 75;      ///< from 0 (least) to 100 (best); codecs without a quality ignore it
    double frameRate = 1;  ///< frames per second

    bool operator==(const CompressionSettings&) const = default;
};

/// A codec that is offered to the user.
struct CodecChoice {
    MovieCodec codec;
    std::string name;
    bool hasQuality;
};

/// How well a codec supports a frame size. Many players can't show PoorlyPlayed frames.
enum class SizeSupport { Refused, PoorlyPlayed, Full };

/// A view of `width` times `height` pixels 0xFFRRGGBB, row by row without padding.
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

/// The content of a planned movie.
struct MovieContent {
    double seconds = 0;  ///< the duration
    /// Returns the movie's picture at a time, in seconds. Its pixels are valid until the next call.
    std::function<PixelView(double seconds)> pictureAt;
};

/// The most pixels that a picture file may declare. A file that declares more is treated as damaged.
constexpr std::int64_t kMostPixelsInFile = std::int64_t{4096} * 4096;

/// The implementation that an EditableMovie and its track share. The last of the two to go destroys it.
class MovieWriter {
  public:
    /// Waits until all frames are written and closes the file.
    virtual ~MovieWriter() = default;

    virtual void SaveOnClose(bool value) noexcept = 0;
    /// Adds the track. Returns false if the file has a track already or can't store this one.
    virtual bool AddTrack(int width, int height, double frameRate) noexcept = 0;
    virtual const CompressionSettings& Settings() const noexcept = 0;
    /// Changes the settings. May be called only after AddTrack and before the first frame.
    virtual void Settings(const CompressionSettings& settings) noexcept = 0;
    virtual void Append(const PixelView& frame) noexcept = 0;
};

/// Writes movies, and reads pictures in formats that Qt lacks. The implementation is a separately loaded
/// module, because its libraries would slow down the start; without the module this base class is used. May
/// be used on any thread. No operation throws; running out of memory counts as a failure.
class MovieLibrary {
  public:
    /// Returns the codecs that this machine can encode, in the order in which the user is offered them; empty
    /// if movies can't be written. Uncompressed is included only if there is no other.
    virtual std::vector<CodecChoice> Codecs() const noexcept { return {}; }

    /// Asks the codec's encoder whether it supports frames of this size in pixels.
    virtual SizeSupport Supports(MovieCodec, int /*width*/, int /*height*/) const noexcept {
        return SizeSupport::Refused;
    }

    /// Creates the file, or truncates an existing one. Returns nil if that fails.
    virtual std::shared_ptr<MovieWriter> Create(const std::filesystem::path&) const noexcept { return nullptr; }

    /// Encodes an image as a movie's first frame and returns it decoded; returns nothing if that fails or
    /// `stop` is requested, which is checked before each of the few frames that are encoded.
    virtual std::optional<RgbImage> EncodePreview(const CompressionSettings&, const PixelView&,
                                                  const std::stop_token& /*stop*/) const noexcept {
        return std::nullopt;
    }

    /// Estimates the file's size in bytes per second of a movie whose picture changes once a second, by
    /// encoding up to 30 frames. Returns nothing if that fails, `pictureAt` throws or `stop` is requested.
    virtual std::optional<double> EstimateBytesPerSecond(const CompressionSettings&, const MovieContent&,
                                                         const std::stop_token& /*stop*/) const noexcept {
        return std::nullopt;
    }

    /// Returns the image in a PICT file; nothing if the file can't be read or isn't a PICT file.
    virtual std::optional<RgbImage> ReadPict(const std::filesystem::path&) const noexcept { return std::nullopt; }

    /// Returns the module's library, or a base instance without a module. The first call loads the module.
    static const MovieLibrary& Installed();
};

/// The only function that the module exports. Returns a library that lives until the process ends.
extern "C" const MovieLibrary* MovieLibraryOfModule();
