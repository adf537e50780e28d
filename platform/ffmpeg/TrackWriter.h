#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <thread>

#include "platform/CompressionSettings.h"
#include "platform/ffmpeg/FrameQueue.h"
#include "platform/ffmpeg/PixelConversion.h"

class MovieFile;

/// Encodes frames into a movie file, on a thread of its own from the first frame on.
class TrackWriter {
  public:
    TrackWriter(MovieFile& file, int width, int height, double frameRate);
    /// Waits until all frames are written.
    ~TrackWriter();

    const CompressionSettings& Settings() const { return settings_; }
    /// Only before the first frame.
    void Settings(const CompressionSettings& settings);

    int Width() const { return width_; }
    int Height() const { return height_; }

    /// Adds a frame of these pixels, which are not needed any more when it returns. One thread at a time.
    void Append(std::span<const std::uint32_t> pixels);

    /// Waits until all frames are written, or, when there was none, declares the empty track. Nothing may follow.
    void Finish();

  private:
    void Encode();

    MovieFile& file_;
    int width_;
    int height_;
    CompressionSettings settings_;
    std::optional<FrameMaker> frameMaker_;
    FrameQueue queue_;
    std::jthread worker_;
};
