#pragma once

#include <memory>

#include "platform/Host.h"
#include "platform/linux/screensaver/ScreenSaver.h"

/// The real host: the desktop that the program runs on.
class DesktopHost final : public Host {
  public:
    /// `applicationId` and `name` tell the desktop's services who asks.
    DesktopHost(const std::string& applicationId, const std::string& name);

    double Microseconds() override;
    void Beep() override;
    void MsgBox(const std::string& text) override;
    void ShowURL(const std::string& url) override;
    void InhibitScreenSaver() override;
    void ReleaseScreenSaver() override;
    void DelayScreenSaver() override;
    std::filesystem::path PreferencesFolder() override;

  private:
    std::unique_ptr<ScreenSaver> screenSaver_;
};
