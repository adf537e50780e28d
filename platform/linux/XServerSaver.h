#pragma once

#include <chrono>
#include <optional>

/// The saver of the X server itself, with its display power management. Does nothing where there is none; no operation
/// waits for the server. Wants an application object that exists already and outlives it.
class XServerSaver {
  public:
    XServerSaver();
    ~XServerSaver();

    /// Keeps the saver away until Release. Harmless when repeated, as is Release.
    void Inhibit();
    void Release();
    /// Counts as activity of the user. May be called at any rate, and reaches the server at most once in ten seconds.
    void Delay();

  private:
    bool suspended_ = false;
    std::optional<std::chrono::steady_clock::time_point> lastDelay_;
};
