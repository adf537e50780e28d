#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

/// The alert sound of this session: the desktop theme's own, else the one in a file, else a bell.
class AlertSound {
  public:
    using Bell = std::function<void()>;

    /// `applicationId` and `name` are what the desktop's volume control shows. `file` is a WAV file. `bell`
    /// may be called on any thread, but not once the object has gone.
    AlertSound(const std::string& applicationId, const std::string& name, const std::filesystem::path& file,
               const Bell& bell);
    /// Doesn't wait for a sound that is still playing.
    ~AlertSound();

    /// Plays the sound once; doesn't wait. If the sound before hasn't begun yet, the bell rings instead.
    void Play();

  private:
    struct Shared;

    std::shared_ptr<Shared> shared_;
};
