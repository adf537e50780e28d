#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/MovieFile.h"
#include "platform/ffmpeg/PixelConversion.h"

/// Frames on their way from the thread that draws to the one that encodes.
class FrameQueue {
  public:
    /// Waits while the queue is full. A nil frame stands for the one before it once more.
    void Push(Owned<AVFrame> frame);
    /// Waits while the queue is empty; nothing once it is closed and empty, or abandoned.
    std::optional<Owned<AVFrame>> Pop();

    /// No more frames follow.
    void Close();
    /// What is in the queue and all that follows is dropped; nobody waits any more.
    void Abandon();
    bool IsAbandoned() const;

  private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Owned<AVFrame>> frames_;
    bool isClosed_ = false;
    bool isAbandoned_ = false;
};

/// Encodes frames into a movie file, on a thread of its own from the first frame on. Of a movie that fails, one line on
/// standard error names the file, the step and the reason.
class QuickTimeWriter final : public MovieWriter {
  public:
    /// Nil when the file can't be made.
    static std::shared_ptr<MovieWriter> Create(const std::filesystem::path& path) noexcept;

    explicit QuickTimeWriter(const std::filesystem::path& path) : path_(path), file_(path) {}
    ~QuickTimeWriter() override;
    QuickTimeWriter(const QuickTimeWriter&) = delete;
    QuickTimeWriter& operator=(const QuickTimeWriter&) = delete;

    void SaveOnClose(bool value) noexcept override { saveOnClose_ = value; }
    bool AddTrack(int width, int height, double frameRate) noexcept override;
    const CompressionSettings& Settings() const noexcept override { return settings_; }
    void Settings(const CompressionSettings& settings) noexcept override;
    void Append(const PixelView& frame) noexcept override;

  private:
    /// Does a step of the work. Once one has failed, no frame is taken any more.
    template <class Step>
    void Try(const Step& step) noexcept;
    void Encode() noexcept;

    std::filesystem::path path_;
    MovieFile file_;
    bool saveOnClose_ = false;
    int width_ = 0;
    int height_ = 0;
    CompressionSettings settings_;
    std::optional<FrameMaker> frameMaker_;
    FrameQueue queue_;
    std::atomic<bool> hasFailed_ = false;
    std::jthread worker_;
};
