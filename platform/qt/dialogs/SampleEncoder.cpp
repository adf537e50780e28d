#include "platform/qt/dialogs/SampleEncoder.h"

#include <utility>

#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/MainThread.h"

namespace {

PixelView View(Picture& picture) { return {picture.Width(), picture.Height(), picture.Bits()}; }

}  // namespace

SampleEncoder::SampleEncoder(QObject& context, Ref<Picture> picture, MoviePlan plan, Results results)
    : context_(context),
      picture_(std::move(picture)),
      plan_(std::move(plan)),
      results_(std::move(results)),
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
    const std::stop_callback endsCurrent(end, [this] {
        const std::lock_guard lock(mutex_);
        current_.request_stop();
    });
    while (const auto settings = NextSettings(end)) {
        const std::stop_token stop = current_.get_token();
        auto preview = MovieLibrary::Installed().EncodePreview(*settings, View(*picture_), stop);
        if (stop.stop_requested()) continue;
        OnMainThread(
            context_, [show = results_.preview, preview = std::move(preview)] { show(preview); }, "Preview");
        const std::optional<double> size = EstimateSize(*settings, stop);
        if (stop.stop_requested()) continue;
        OnMainThread(
            context_, [show = results_.size, size] { show(size); }, "Size");
    }
}

std::optional<double> SampleEncoder::EstimateSize(const CompressionSettings& settings,
                                                  const std::stop_token& stop) const {
    if (!plan_.draw) return std::nullopt;
    const Ref<Picture> drawn = NewPicture(picture_->Width(), picture_->Height(), 32);
    const auto pictureAt = [&](double seconds) {
        Deliver(plan_.draw, drawn->Graphics(), seconds);
        return View(*drawn);
    };
    return MovieLibrary::Installed().EstimateBytesPerSecond(settings, {plan_.seconds, pictureAt}, stop);
}
