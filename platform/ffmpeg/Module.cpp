#include "platform/ffmpeg/Module.h"

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/PixelConversion.h"

namespace {

Owned<AVFormatContext> OpenPict(const std::filesystem::path& file) {
    AVFormatContext* context = nullptr;
    Check(avformat_open_input(&context, file.c_str(), av_find_input_format("qdraw_pipe"), nullptr), "opening");
    return Owned<AVFormatContext>(context);
}

RgbImage DecodePict(const std::filesystem::path& file) {
    const Owned<AVFormatContext> input = OpenPict(file);
    const Owned<AVCodecContext> decoder = Own(avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_QDRAW)));
    const Owned<AVPacket> packet = Own(av_packet_alloc());
    const Owned<AVFrame> frame = Own(av_frame_alloc());
    decoder->max_pixels = kMostPixelsInFile;
    Check(avcodec_open2(decoder.get(), nullptr, nullptr), "opening");
    Check(av_read_frame(input.get(), packet.get()), "reading");
    Check(avcodec_send_packet(decoder.get(), packet.get()), "decoding");
    Check(avcodec_receive_frame(decoder.get(), frame.get()), "decoding");
    return ToRgbImage(*frame);
}

/// What `work` gives, or nothing when it fails.
template <class Work>
auto ResultOrEmpty(const Work& work) noexcept -> decltype(work()) {
    try {
        return work();
    } catch (...) {
        return {};
    }
}

/// The border of the module: nothing is thrown out of it, and of the program only what gives the pictures is called.
class FfmpegLibrary final : public MovieLibrary {
  public:
    std::vector<CodecChoice> Codecs() const noexcept override { return ResultOrEmpty(InstalledCodecs); }

    std::shared_ptr<MovieWriter> Create(const std::filesystem::path& path) const noexcept override {
        return ResultOrEmpty([&] { return CreateMovieWriter(path); });
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
        return ResultOrEmpty([&] { return std::optional(DecodePict(file)); });
    }
};

}  // namespace

[[gnu::visibility("default")]] const MovieLibrary* MovieLibraryOfModule() {
    av_log_set_level(AV_LOG_QUIET);  // what FFmpeg has to say is of no use to whoever started the program
    static const FfmpegLibrary library;
    return &library;
}
