#pragma once

#include <chrono>
#include <optional>

#include "platform/linux/screensaver/ScreenSaver.h"

/// The saver of the X server itself, with its display power management. Does nothing where there is no X server or the
/// server has no saver to suspend.
class XServerSaver final : public ScreenSaver {
  public:
    XServerSaver();
    ~XServerSaver() override;

    void Inhibit() override;
    void Release() override;
    /// Reaches the server at most once in ten seconds.
    void Delay() override;

  private:
    bool suspended_ = false;
    std::optional<std::chrono::steady_clock::time_point> lastDelay_;
};
