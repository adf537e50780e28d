#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/linux/alert/AlertSound.h"

/// The sound service of the desktop session. Its operations may wait for the service; one thread at a time.
class SoundService {
  public:
    explicit SoundService(SoundOwner owner);
    ~SoundService();

    /// Begins to play the sound that the desktop's theme has for an event. False: there is none, or no sound at all.
    bool PlayEvent(const std::string& event);
    /// Begins to play the sound in a file (WAV).
    bool PlayFile(const std::filesystem::path& file);

  private:
    struct Context;

    bool Play(const char* property, const std::string& value);

    SoundOwner owner_;
    /// The connection to the service; nil while there is none.
    std::unique_ptr<Context> context_;
};
