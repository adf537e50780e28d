#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <utility>
#include <vector>

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/EncodeSample.h"
#include "platform/ffmpeg/MovieFile.h"
#include "platform/ffmpeg/OrNothing.h"
#include "platform/ffmpeg/PictReader.h"
#include "platform/ffmpeg/QuickTimeWriter.h"

namespace {

/// The border of the module: nothing is thrown through it, and of the program only what gives the pictures is called.
class FfmpegLibrary final : public MovieLibrary {
  public:
    bool CanWrite() const noexcept override { return CanWriteMovies(); }

    std::vector<CodecChoice> Codecs() const noexcept override {
        return OrNothing([] { return InstalledCodecs(); });
    }

    std::shared_ptr<MovieWriter> Create(const std::filesystem::path& path) const noexcept override {
        return OrNothing([&]() -> std::shared_ptr<MovieWriter> {
            std::unique_ptr<MovieFile> file = MovieFile::Create(path);
            return file ? std::make_shared<QuickTimeWriter>(std::move(file)) : nullptr;
        });
    }

    SizeSupport Supports(MovieCodec codec, int width, int height) const noexcept override {
        return OrNothing([&] { return SupportOf(codec, width, height); });
    }

    std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                          const std::stop_token& stop) const noexcept override {
        return OrNothing([&] { return ::EncodePreview(settings, image, stop); });
    }

    std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                                 const std::stop_token& stop) const noexcept override {
        return OrNothing([&] { return ::EstimateBytesPerSecond(settings, movie, stop); });
    }

    std::optional<RgbImage> ReadPict(const std::filesystem::path& file) const noexcept override {
        return OrNothing([&] { return ::ReadPict(file); });
    }
};

}  // namespace

[[gnu::visibility("default")]] const MovieLibrary* MovieLibraryOfModule() {
    static const FfmpegLibrary library;
    return &library;
}
