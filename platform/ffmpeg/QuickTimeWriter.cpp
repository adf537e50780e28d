#include "platform/ffmpeg/QuickTimeWriter.h"

#include <utility>

#include "platform/ffmpeg/OrNothing.h"
#include "platform/ffmpeg/Timing.h"

extern "C" {
#include <libavutil/imgutils.h>
}

namespace {

bool IsPossible(int width, int height, double frameRate) {
    constexpr int kLongestSide = 0xFFFF;  // of a sample entry
    return width <= kLongestSide && height <= kLongestSide && IsUsable(ExactRate(frameRate)) &&
           av_image_check_size(static_cast<unsigned>(width), static_cast<unsigned>(height), 0, nullptr) >= 0;
}

}  // namespace

QuickTimeWriter::QuickTimeWriter(std::unique_ptr<MovieFile> file) : file_(std::move(file)) {}

QuickTimeWriter::~QuickTimeWriter() {
    if (!saveOnClose_) return;
    OrNothing([this] {
        if (track_) track_->Finish();
        return file_->Finish();  // nobody is left who could be told of a failure
    });
}

bool QuickTimeWriter::AddTrack(int width, int height, double frameRate) noexcept {
    if (track_ || !IsPossible(width, height, frameRate)) return false;
    return OrNothing([&] {
        track_.emplace(*file_, width, height, frameRate);
        return true;
    });
}

void QuickTimeWriter::Settings(const CompressionSettings& settings) noexcept {
    isGood_ = OrNothing([&] {
        track_->Settings(settings);
        return true;
    });
}

void QuickTimeWriter::Append(const PixelView& frame) noexcept {
    if (!isGood_ || frame.width != track_->Width() || frame.height != track_->Height()) return;
    isGood_ = OrNothing([&] {
        track_->Append(frame.pixels);
        return true;
    });
}
