#include <algorithm>
#include <chrono>
#include <cstdint>
#include <stdexcept>
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
#include "platform/ffmpeg/Timing.h"

namespace {

using Pixels = std::vector<std::uint32_t>;
using Frames = std::vector<Owned<AVFrame>>;

void Require(bool isGood) {
    if (!isGood) throw std::runtime_error("the encoder or the file failed");
}

/// Adds up the time in which something runs.
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

/// Draws the pictures of a movie, some at a time.
class Painter {
  public:
    explicit Painter(const MovieJob& job)
        : frames_(job.startTime, job.settings.frameRate),
          next_(frames_.Count()),
          picture_(NewPicture(job.width, job.height, 32)) {}

    /// Up to `count` pictures; none at the end.
    std::vector<Pixels> Next(Int32 count) {
        constexpr double kScale = 0.9;
        std::vector<Pixels> drawn;
        for (; count > 0 && next_ >= 0; --count, --next_) {
            winMain::Instance().Redraw(picture_->Graphics(), frames_.Seconds(next_), kScale, true,
                                       FrameSequence::ShowsTimeUp(next_));
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

/// Makes pictures into frames of a form that the encoder takes.
class Converter {
  public:
    explicit Converter(const MovieJob& job) : maker_(FindCodec(job.settings.codec), job.width, job.height) {}

    Frames Convert(const std::vector<Pixels>& pictures) {
        Frames frames;
        for (const Pixels& picture : pictures) {
            if (maker_.Take(picture)) newest_ = maker_.Make();
            frames.emplace_back(av_frame_clone(newest_.get()));
        }
        return frames;
    }

  private:
    FrameMaker maker_;
    Owned<AVFrame> newest_;
};

}  // namespace

double RunEncoder(const MovieJob& job, EncoderInput input) {
    constexpr Int32 kPixelsAtATime = 2 << 20;  // few enough to stay in the processor's cache, as in the job
    Stopwatch stopwatch;
    Stopwatch untimed;
    Stopwatch& conversion = input == EncoderInput::Pictures ? stopwatch : untimed;
    Painter painter(job);
    Converter converter(job);
    std::unique_ptr<MovieFile> file;
    std::unique_ptr<Encoder> encoder;
    stopwatch.Time([&] {
        file = MovieFile::Create(job.file);
        encoder = Encoder::Open(job.settings, job.width, job.height,
                                [&file](AVPacket& packet) { return file->WritePacket(packet); });
        Require(encoder &&
                file->WriteHeader(encoder->Context(), ExactRate(job.settings.frameRate), MovieFile::Content::Frames));
    });
    const Int32 chunk = std::max(kPixelsAtATime / (job.width * job.height), 1);
    for (auto pictures = painter.Next(chunk); !pictures.empty(); pictures = painter.Next(chunk)) {
        Frames frames;
        conversion.Time([&] { frames = converter.Convert(pictures); });
        stopwatch.Time([&] {
            for (const Owned<AVFrame>& frame : frames) {
                Require(encoder->Write(*frame));
            }
        });
    }
    stopwatch.Time([&] { Require(encoder->Finish() && file->Finish()); });
    return stopwatch.Seconds();
}
