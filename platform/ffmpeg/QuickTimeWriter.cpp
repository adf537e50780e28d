#include "platform/ffmpeg/QuickTimeWriter.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "platform/ffmpeg/Codecs.h"
#include "platform/ffmpeg/Encoder.h"

extern "C" {
#include <libavutil/imgutils.h>
}

namespace {

// Enough to keep either side busy while the other is late; a frame of 1920 x 1080 pixels has up to 12 megabytes.
constexpr std::size_t kQueueCapacity = 4;

/// Throws FfmpegError when a QuickTime file can't have such a track.
void CheckTrack(int width, int height, double frameRate) {
    constexpr int kLongestSide = 0xFFFF;  // of a sample entry
    const bool isPossible =
        width <= kLongestSide && height <= kLongestSide && IsUsable(ExactRate(frameRate)) &&
        av_image_check_size(static_cast<unsigned>(width), static_cast<unsigned>(height), 0, nullptr) >= 0;
    Check(isPossible ? 0 : AVERROR(EINVAL), "making the track");
}

void Report(const std::filesystem::path& movie, const std::exception& failure) {
    std::fprintf(stderr, "%s: %s\n", movie.c_str(), failure.what());
}

}  // namespace

void FrameQueue::Push(Owned<AVFrame> frame) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return frames_.size() < kQueueCapacity || isAbandoned_; });
    if (isAbandoned_) return;
    frames_.push_back(std::move(frame));
    changed_.notify_one();
}

std::optional<Owned<AVFrame>> FrameQueue::Pop() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !frames_.empty() || isClosed_ || isAbandoned_; });
    if (frames_.empty()) return std::nullopt;
    Owned<AVFrame> frame = std::move(frames_.front());
    frames_.pop_front();
    changed_.notify_one();
    return frame;
}

void FrameQueue::Close() {
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    changed_.notify_all();
}

void FrameQueue::Abandon() {
    const std::lock_guard lock(mutex_);
    isAbandoned_ = true;
    frames_.clear();
    changed_.notify_all();
}

bool FrameQueue::IsAbandoned() const {
    const std::lock_guard lock(mutex_);
    return isAbandoned_;
}

std::shared_ptr<MovieWriter> QuickTimeWriter::Create(const std::filesystem::path& path) noexcept {
    try {
        return std::make_shared<QuickTimeWriter>(path);
    } catch (const std::exception& failure) {
        Report(path, failure);
        return nullptr;
    }
}

QuickTimeWriter::~QuickTimeWriter() {
    queue_.Close();
    if (worker_.joinable()) {
        worker_.join();
    } else if (frameMaker_ && saveOnClose_) {
        Encode();  // not one frame, but this makes the track
    }
    if (saveOnClose_ && file_.HasTrack()) Try([this] { file_.Finish(); });
}

template <class Step>
void QuickTimeWriter::Try(const Step& step) noexcept {
    try {
        step();
    } catch (const std::exception& failure) {
        queue_.Abandon();
        if (!hasFailed_.exchange(true)) Report(path_, failure);
    }
}

bool QuickTimeWriter::AddTrack(int width, int height, double frameRate) noexcept {
    if (frameMaker_) return false;
    try {
        CheckTrack(width, height, frameRate);
    } catch (const std::exception& failure) {
        Report(path_, failure);
        return false;
    }
    width_ = width;
    height_ = height;
    Settings({.frameRate = frameRate});
    return frameMaker_.has_value();
}

void QuickTimeWriter::Settings(const CompressionSettings& settings) noexcept {
    settings_ = settings;
    Try([this] { frameMaker_.emplace(FindCodec(settings_.codec), width_, height_); });
}

void QuickTimeWriter::Append(const PixelView& frame) noexcept {
    if (queue_.IsAbandoned() || frame.width != width_ || frame.height != height_) return;
    Try([&] {
        if (!worker_.joinable()) worker_ = std::jthread([this] { Encode(); });
        queue_.Push(frameMaker_->Convert(frame.pixels));
    });
}

void QuickTimeWriter::Encode() noexcept {
    Try([this] {
        Encoder encoder(settings_, width_, height_, [this](const AVPacket& packet) { file_.Write(packet); });
        file_.AddTrack(encoder.Context(), ExactRate(settings_.frameRate));
        while (const std::optional<Owned<AVFrame>> frame = queue_.Pop()) {
            if (*frame) {
                encoder.Write(**frame);
            } else {
                encoder.Repeat();
            }
        }
        encoder.Finish();
    });
}
