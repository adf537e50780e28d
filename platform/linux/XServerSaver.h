#pragma once

#include <chrono>
#include <optional>

/// The saver of the X server itself, with its display power management. Does nothing where there is none; no
/// operation waits for the server. The application object must exist already and outlive this one.
class XServerSaver {
  public:
    XServerSaver();
    ~XServerSaver();

    /// Keeps the saver away until Release. Harmless when repeated, as is Release.
    void Inhibit();
    void Release();
    /// Counts as activity of the user. May be called at any rate; the server hears of it once in ten seconds.
    void Delay();

  private:
    bool suspended_ = false;
    std::optional<std::chrono::steady_clock::time_point> lastDelay_;
};
