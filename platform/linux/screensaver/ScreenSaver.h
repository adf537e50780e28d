#pragma once

#include <memory>
#include <string>

/// Keeps the screen saver away. No operation waits for anything, and a session in which nothing can be kept away is no
/// error: nothing happens then, and nothing is told. For the thread of the user interface.
class ScreenSaver {
  public:
    /// Releases what is held.
    virtual ~ScreenSaver() = default;

    /// Keeps the screen saver away until Release. Harmless while it is kept away already.
    virtual void Inhibit() = 0;
    /// Lets the screen saver come again. Harmless while it isn't kept away.
    virtual void Release() = 0;
    /// Counts as activity of the user; may be called at any rate.
    virtual void Delay() = 0;
};

/// The screen saver of this session: the desktop's and, on X11, the X server's own. The desktop may show the reason to
/// the user. Wants an application object that exists already and outlives it.
std::unique_ptr<ScreenSaver> MakeScreenSaver(const std::string& applicationId, const std::string& reason);
