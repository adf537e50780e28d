#include "platform/ffmpeg/QuickTimeWriter.h"

#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

#include "platform/ffmpeg/Encoder.h"
#include "platform/ffmpeg/MovieFile.h"

namespace {

/// Throws if a QuickTime file can't hold a track of that frame size and rate.
void CheckTrack(int width, int height, double frameRate) {
    constexpr int kLongestSide = 0xFFFF;  // a sample entry stores a side in 16 bits
    const AVRational rate = ExactRate(frameRate);
    const bool isPossible =
        width <= kLongestSide && height <= kLongestSide && rate.num > 0 && rate.den > 0 &&
        av_image_check_size(static_cast<unsigned>(width), static_cast<unsigned>(height), 0, nullptr) >= 0;
    Require(isPossible, AVERROR(EINVAL), "making the track");
}

void Report(const std::filesystem::path& movie, const std::exception& failure) {
    std::fprintf(stderr, "%s: %s\n", movie.c_str(), failure.what());
}

/// A bounded queue of frames from the drawing thread to the encoding thread.
class FrameQueue {
  public:
    /// Appends a frame, waiting while the queue is full. Drops the frame if the queue is abandoned.
    void Push(NextFrame frame) {
        // 4 frames keep both threads busy when one is late. A frame of 1920 x 1080 takes up to 12 MB.
        constexpr std::size_t kCapacity = 4;
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return frames_.size() < kCapacity || isAbandoned_; });
        if (isAbandoned_) return;
        frames_.push_back(std::move(frame));
        changed_.notify_one();
    }

    /// Takes a frame, waiting while there is none. Returns nullopt if `end` or Abandon ends the wait.
    std::optional<NextFrame> Pop(const std::stop_token& end) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, end, [this] { return !frames_.empty() || isAbandoned_; });
        if (frames_.empty()) return std::nullopt;
        NextFrame frame = std::move(frames_.front());
        frames_.pop_front();
        changed_.notify_one();
        return frame;
    }

    /// Drops all present and future frames and wakes every waiting thread. Returns false on repeated calls.
    bool Abandon() {
        const std::lock_guard lock(mutex_);
        frames_.clear();
        changed_.notify_all();
        return !isAbandoned_.exchange(true);
    }
    bool IsAbandoned() const { return isAbandoned_; }

  private:
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::deque<NextFrame> frames_;
    std::atomic<bool> isAbandoned_ = false;
};

/// Encodes frames into a movie file on a worker thread, which the first frame starts. The first failure is
/// printed to stderr as one line: the file, the step and the reason.
class QuickTimeWriter final : public MovieWriter {
  public:
    explicit QuickTimeWriter(const std::filesystem::path& path) : path_(path), file_(path) {}

    ~QuickTimeWriter() override {
        if (saveOnClose_ && frameMaker_) Try([this] { StartEncoding(); });  // creates an empty movie's track
        worker_ = std::jthread();
        if (saveOnClose_ && file_.HasTrack()) Try([this] { file_.Finish(); });
    }

    void SaveOnClose(bool value) noexcept override { saveOnClose_ = value; }

    bool AddTrack(int width, int height, double frameRate) noexcept override {
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

    const CompressionSettings& Settings() const noexcept override { return settings_; }
    void Settings(const CompressionSettings& settings) noexcept override {
        settings_ = settings;
        Try([this] { frameMaker_.emplace(FindCodec(settings_.codec), width_, height_); });
    }

    void Append(const PixelView& frame) noexcept override {
        if (queue_.IsAbandoned() || frame.width != width_ || frame.height != height_) return;
        Try([&] {
            StartEncoding();
            queue_.Push(frameMaker_->Convert(frame.pixels));
        });
    }

  private:
    /// Runs `step`. If it throws, reports the first such failure and abandons the queue.
    template <class Step>
    void Try(const Step& step) noexcept {
        try {
            step();
        } catch (const std::exception& failure) {
            if (queue_.Abandon()) Report(path_, failure);
        }
    }

    void StartEncoding() {
        if (worker_.joinable()) return;
        worker_ = std::jthread([this](const std::stop_token& end) { Try([&] { Encode(end); }); });
    }

    void Encode(const std::stop_token& end) {
        Encoder encoder(settings_, width_, height_, [this](const AVPacket& packet) { file_.Write(packet); });
        file_.AddTrack(encoder.Context(), ExactRate(settings_.frameRate));
        while (std::optional<NextFrame> next = queue_.Pop(end))
            encoder.Write(std::move(*next));
        encoder.Finish();
    }

    std::filesystem::path path_;
    MovieFile file_;
    bool saveOnClose_ = false;
    int width_ = 0;
    int height_ = 0;
    CompressionSettings settings_;
    std::optional<FrameMaker> frameMaker_;
    FrameQueue queue_;
    std::jthread worker_;
};

}  // namespace

std::shared_ptr<MovieWriter> CreateQuickTimeWriter(const std::filesystem::path& path) {
    try {
        return std::make_shared<QuickTimeWriter>(path);
    } catch (const std::exception& failure) {
        Report(path, failure);
        throw;
    }
}
