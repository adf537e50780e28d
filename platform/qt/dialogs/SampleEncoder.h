#pragma once

#include <QtCore/QObject>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

#include "platform/CompressionSettings.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

/// Encodes one picture again and again on a worker, as the settings change. Nothing here waits for it but the end.
class SampleEncoder {
  public:
    using Done = std::function<void(const std::optional<EncodedSample>&)>;

    /// `done` gets each result on the main thread, as long as `context` lives. The picture must not be drawn on.
    SampleEncoder(QObject& context, Ref<Picture> picture, Done done);

    /// What is being encoded before is given up.
    void Encode(const CompressionSettings& settings);

  private:
    void Work(const std::stop_token& end);
    std::optional<CompressionSettings> NextSettings(const std::stop_token& end);

    QObject& context_;
    const Ref<Picture> picture_;
    const Done done_;

    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::optional<CompressionSettings> wanted_;
    std::stop_source current_;
    std::jthread worker_;  // last, so that it has ended before what it uses goes
};
