#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/linux/screensaver/ScreenSaver.h"

/// The screen saver of the desktop, held off by a service on the session bus: the first one that grants it. In a
/// sandbox only the portal is asked.
///
/// Whatever a service grants is given back exactly once, however late the grant comes: after Release, after the next
/// service was asked, or after this object has gone, as long as the application object lives.
class DBusInhibitor final : public ScreenSaver {
  public:
    /// A service that has not answered within `patience` is passed over; the next one is asked.
    DBusInhibitor(std::string applicationId, std::string reason,
                  std::chrono::milliseconds patience = std::chrono::seconds(2));
    ~DBusInhibitor() override;

    void Inhibit() override;
    void Release() override;
    /// Nothing: what holds a desktop's saver off needs no repeating.
    void Delay() override {}

  private:
    class Run;

    std::string applicationId_;
    std::string reason_;
    std::chrono::milliseconds patience_;
    std::shared_ptr<Run> run_;
};
