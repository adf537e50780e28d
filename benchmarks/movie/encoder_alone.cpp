#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "benchmarks/movie/jobs.h"
#include "core/winMain.h"
#include "movie/FrameSequence.h"
#include "platform/Graphics.h"
#include "platform/Picture.h"
#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/MovieFile.h"
#include "platform/ffmpeg/PixelConversion.h"

namespace {

using Pixels = std::vector<std::uint32_t>;
using Frames = std::vector<Owned<AVFrame>>;

/// Sums the run times of several pieces of work.
class Stopwatch {
  public:
    template <class Work>
    void Time(const Work& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        seconds_ += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    double Seconds() const { return seconds_; }

  private:
    double seconds_ = 0;
};

/// Draws the pictures of a movie in chunks.
class Painter {
  public:
    explicit Painter(const MovieJob& job)
        : frames_(job.startTime, job.settings.frameRate),
          next_(frames_.Count()),
          picture_(NewPicture(job.width, job.height, 32)) {}

    /// Draws the next pictures, at most `count`. Returns none at the end.
    std::vector<Pixels> Next(Int32 count) {
        constexpr double kScale = 0.9;
        std::vector<Pixels> drawn;
        for (; count > 0 && next_ >= 0; --count, --next_) {
            winMain::Instance().Redraw(picture_->Graphics(), frames_.Seconds(next_), kScale, true, next_ == 0);
            const auto pixels = picture_->Bits();
            drawn.emplace_back(pixels.begin(), pixels.end());
        }
        return drawn;
    }

  private:
    FrameSequence frames_;
    Int32 next_;
    Ref<Picture> picture_;
};

/// Converts pictures into frames for the encoder.
class Converter {
  public:
    explicit Converter(const MovieJob& job) : maker_(FindCodec(job.settings.codec), job.width, job.height) {}

    Frames Convert(const std::vector<Pixels>& pictures) {
        Frames frames;
        for (const Pixels& picture : pictures) {
            NextFrame next = maker_.Convert(picture);
            if (auto* frame = std::get_if<Owned<AVFrame>>(&next)) newest_ = std::move(*frame);
            frames.push_back(Own(av_frame_clone(newest_.get())));
        }
        return frames;
    }

  private:
    FrameMaker maker_;
    Owned<AVFrame> newest_;
};

}  // namespace

double RunEncoder(const MovieJob& job, EncoderInput input) {
    constexpr Int32 kPixelsAtATime = 2 << 20;  // few enough for the processor's cache, as in a real job
    Stopwatch stopwatch;
    Stopwatch untimed;
    Stopwatch& conversion = input == EncoderInput::Pictures ? stopwatch : untimed;
    Painter painter(job);
    Converter converter(job);
    av_log_set_level(AV_LOG_QUIET);
    std::unique_ptr<MovieFile> file;
    std::unique_ptr<Encoder> encoder;
    stopwatch.Time([&] {
        file = std::make_unique<MovieFile>(job.file);
        encoder = std::make_unique<Encoder>(job.settings, job.width, job.height,
                                            [&file](const AVPacket& packet) { file->Write(packet); });
        file->AddTrack(encoder->Context(), ExactRate(job.settings.frameRate));
    });
    const Int32 chunk = std::max(kPixelsAtATime / (job.width * job.height), 1);
    for (auto pictures = painter.Next(chunk); !pictures.empty(); pictures = painter.Next(chunk)) {
        Frames frames;
        conversion.Time([&] { frames = converter.Convert(pictures); });
        stopwatch.Time([&] {
            for (Owned<AVFrame>& frame : frames)
                encoder->Write(std::move(frame));
        });
    }
    stopwatch.Time([&] {
        encoder->Finish();
        file->Finish();
    });
    return stopwatch.Seconds();
}
