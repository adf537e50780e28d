#pragma once

#include <memory>
#include <optional>

#include "platform/MovieLibrary.h"
#include "platform/ffmpeg/MovieFile.h"
#include "platform/ffmpeg/TrackWriter.h"

/// The file and its one track together.
class QuickTimeWriter final : public MovieWriter {
  public:
    explicit QuickTimeWriter(std::unique_ptr<MovieFile> file);
    ~QuickTimeWriter() override;
    QuickTimeWriter(const QuickTimeWriter&) = delete;
    QuickTimeWriter& operator=(const QuickTimeWriter&) = delete;

    void SaveOnClose(bool value) noexcept override { saveOnClose_ = value; }
    bool AddTrack(int width, int height, double frameRate) noexcept override;
    const CompressionSettings& Settings() const noexcept override { return track_->Settings(); }
    void Settings(const CompressionSettings& settings) noexcept override;
    void Append(const PixelView& frame) noexcept override;

  private:
    std::unique_ptr<MovieFile> file_;
    std::optional<TrackWriter> track_;
    bool saveOnClose_ = false;
    bool isGood_ = true;
};
