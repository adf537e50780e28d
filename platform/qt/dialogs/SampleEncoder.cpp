#include "platform/qt/dialogs/SampleEncoder.h"

#include <utility>
#include <vector>

#include "platform/qt/events/MainThread.h"

SampleEncoder::SampleEncoder(QObject& context, Ref<Picture> picture, Done done)
    : context_(context),
      picture_(std::move(picture)),
      done_(std::move(done)),
      worker_([this](const std::stop_token& end) { Work(end); }) {}

void SampleEncoder::Encode(const CompressionSettings& settings) {
    const std::lock_guard lock(mutex_);
    wanted_ = settings;
    current_.request_stop();
    changed_.notify_one();
}

/// Waits for settings; none at the end.
std::optional<CompressionSettings> SampleEncoder::NextSettings(const std::stop_token& end) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, end, [this] { return wanted_.has_value(); });
    if (end.stop_requested()) return std::nullopt;
    current_ = std::stop_source();
    return std::exchange(wanted_, std::nullopt);
}

void SampleEncoder::Work(const std::stop_token& end) {
    // A count-down is long runs of equal pictures.
    constexpr std::size_t kFrames = 24;
    const PixelView frame{picture_->Width(), picture_->Height(), picture_->Bits()};
    const std::vector<PixelView> frames(kFrames, frame);
    const std::stop_callback endsCurrent(end, [this] {
        const std::lock_guard lock(mutex_);
        current_.request_stop();
    });
    while (const auto settings = NextSettings(end)) {
        const std::stop_token stop = current_.get_token();
        auto sample = MovieLibrary::Installed().EncodeSample(*settings, frames, stop);
        if (stop.stop_requested()) continue;
        OnMainThread(
            context_, [done = done_, sample = std::move(sample)] { done(sample); }, "Sample");
    }
}
