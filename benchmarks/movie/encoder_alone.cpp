#include <algorithm>
#include <chrono>
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

/// Draws the frames of a movie, some at a time: all of them would take too much memory.
class Painter {
  public:
    explicit Painter(const MovieJob& job)
        : frames_(job.startTime, job.settings.frameRate),
          next_(frames_.Count()),
          maker_(FindCodec(job.settings.codec), job.width, job.height),
          picture_(NewPicture(job.width, job.height, 32)) {}

    /// Up to `count` frames, in a form that the encoder takes; none at the end.
    Frames Next(Int32 count) {
        constexpr double kScale = 0.9;
        Frames drawn;
        for (; count > 0 && next_ >= 0; --count, --next_) {
            winMain::Instance().Redraw(picture_->Graphics(), frames_.Seconds(next_), kScale, true,
                                       FrameSequence::ShowsTimeUp(next_));
            if (maker_.Take(picture_->Bits())) newest_ = maker_.Make();
            drawn.emplace_back(av_frame_clone(newest_.get()));
        }
        return drawn;
    }

  private:
    FrameSequence frames_;
    Int32 next_;
    FrameMaker maker_;
    Owned<AVFrame> newest_;
    Ref<Picture> picture_;
};

}  // namespace

double RunEncoder(const MovieJob& job) {
    constexpr Int32 kPixelsAtATime = 32 << 20;
    Stopwatch stopwatch;
    Painter painter(job);
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
    for (Frames frames = painter.Next(chunk); !frames.empty(); frames = painter.Next(chunk)) {
        stopwatch.Time([&] {
            for (const Owned<AVFrame>& frame : frames) {
                Require(encoder->Write(*frame));
            }
        });
    }
    stopwatch.Time([&] { Require(encoder->Finish() && file->Finish()); });
    return stopwatch.Seconds();
}
