#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

/// Plays an alert: the desktop theme's sound or, if that fails, a sound file or, if that fails too, a bell.
class AlertSound {
  public:
    using Bell = std::function<void()>;

    /// `applicationId` and `name` appear in the desktop's volume control. `file` is a WAV file. `bell` may be
    /// called on any thread, but never after this object is destroyed.
    AlertSound(const std::string& applicationId, const std::string& name, const std::filesystem::path& file,
               const Bell& bell);
    /// Returns without waiting for a sound that is still playing.
    ~AlertSound();

    /// Plays the sound once, without waiting. Rings the bell if the previous sound hasn't begun yet.
    void Play();

  private:
    struct Shared;

    std::shared_ptr<Shared> shared_;
};
