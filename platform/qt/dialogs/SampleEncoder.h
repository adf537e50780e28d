#pragma once

#include <QtCore/QObject>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

#include "platform/CompressionSettings.h"
#include "platform/EditableMovie.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

/// Encodes a picture and a piece of a movie on a worker, again whenever the settings change. Nothing here waits for it
/// but the end.
class SampleEncoder {
  public:
    /// Each is called on the main thread; nothing stands for what can't be encoded.
    struct Results {
        std::function<void(const std::optional<RgbImage>& image)> preview;
        std::function<void(std::optional<double> bytesPerSecond)> size;
    };

    /// There are results as long as `context` lives. The picture must not be drawn on.
    SampleEncoder(QObject& context, Ref<Picture> picture, MoviePlan plan, Results results);

    /// What is being encoded before is given up.
    void Encode(const CompressionSettings& settings);

  private:
    void Work(const std::stop_token& end);
    std::optional<CompressionSettings> NextSettings(const std::stop_token& end);
    std::optional<double> EstimateSize(const CompressionSettings& settings, const std::stop_token& stop) const;

    QObject& context_;
    const Ref<Picture> picture_;
    const MoviePlan plan_;
    const Results results_;

    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::optional<CompressionSettings> wanted_;
    std::stop_source current_;
    std::jthread worker_;  // last, so that it has ended before what it uses goes
};
