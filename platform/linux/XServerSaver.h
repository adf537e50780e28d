#pragma once

#include <chrono>
#include <optional>

/// Controls the X server's own screen saver and display power management. Does nothing without an X server.
/// No operation waits for the server. The application object must exist already and outlive this object.
class XServerSaver {
  public:
    XServerSaver();
    ~XServerSaver();

    /// Suspends the saver until Release. Repeated calls have no effect.
    void Inhibit();
    void Release();
    /// Resets the saver's idle time. May be called at any rate: at most one request in 10 seconds is sent.
    void Delay();

  private:
    bool suspended_ = false;
    std::optional<std::chrono::steady_clock::time_point> lastDelay_;
};
