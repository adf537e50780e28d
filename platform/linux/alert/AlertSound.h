#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

/// Makes an alert heard. No operation waits for anything, and a session without sound is no error.
class AlertSound {
  public:
    /// Doesn't wait for a sound under way.
    virtual ~AlertSound() = default;

    /// Plays the sound once.
    virtual void Play() = 0;
};

/// Who plays, as the desktop's volume control shows it.
struct SoundOwner {
    std::string applicationId;
    std::string name;
};

/// The alert sound of this session: the desktop theme's own, else the sound in `file`, else `bell`, which may be called
/// on any thread, but not once the object has gone. The bell also rings when the sound before has not been begun yet.
std::unique_ptr<AlertSound> MakeAlertSound(const SoundOwner& owner, const std::filesystem::path& file,
                                           const std::function<void()>& bell);
