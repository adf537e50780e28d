#include "platform/ffmpeg/EncodedSample.h"
#include "platform/ffmpeg/PictFile.h"
#include "platform/ffmpeg/QuickTimeWriter.h"
#include "platform/ffmpeg/SizeEstimate.h"

namespace {

/// Returns the result of `work`, or an empty value if it throws.
template <class Work>
auto ResultOrEmpty(const Work& work) noexcept -> decltype(work()) {
    try {
        return work();
    } catch (...) {
        return {};
    }
}

/// The boundary of the module. No exception crosses it. Only `pictureAt` calls back into the program.
class FfmpegLibrary final : public MovieLibrary {
  public:
    std::vector<CodecChoice> Codecs() const noexcept override { return ResultOrEmpty(InstalledCodecs); }

    std::shared_ptr<MovieWriter> Create(const std::filesystem::path& path) const noexcept override {
        return ResultOrEmpty([&] { return CreateQuickTimeWriter(path); });
    }

    SizeSupport Supports(MovieCodec codec, int width, int height) const noexcept override {
        return ResultOrEmpty([&] { return SupportOf(codec, width, height); });
    }

    std::optional<RgbImage> EncodePreview(const CompressionSettings& settings, const PixelView& image,
                                          const std::stop_token& stop) const noexcept override {
        return ResultOrEmpty([&] { return ::EncodePreview(settings, image, stop); });
    }

    std::optional<double> EstimateBytesPerSecond(const CompressionSettings& settings, const MovieContent& movie,
                                                 const std::stop_token& stop) const noexcept override {
        return ResultOrEmpty([&] { return ::EstimateBytesPerSecond(settings, movie, stop); });
    }

    std::optional<RgbImage> ReadPict(const std::filesystem::path& file) const noexcept override {
        return ResultOrEmpty([&] { return std::optional(ReadPictFile(file)); });
    }
};

}  // namespace

[[gnu::visibility("default")]] const MovieLibrary* MovieLibraryOfModule() {
    av_log_set_level(AV_LOG_QUIET);  // FFmpeg's messages would not help the user
    static const FfmpegLibrary library;
    return &library;
}
