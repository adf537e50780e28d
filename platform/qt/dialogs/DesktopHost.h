#pragma once

#include "platform/Host.h"
#include "platform/linux/AlertSound.h"
#include "platform/linux/DBusInhibitor.h"
#include "platform/linux/XServerSaver.h"

/// The real host: the desktop that the program runs on.
class DesktopHost final : public Host {
  public:
    /// `applicationId` and `name` tell services who asks; `alertSound` is played where the desktop has no sound for it.
    DesktopHost(const std::string& applicationId, const std::string& name, const std::filesystem::path& alertSound);

    double Microseconds() override;
    void Beep() override;
    void MsgBox(const std::string& text) override;
    bool SelectColor(Color& color, const std::string& prompt) override;
    void DragText(const std::string& text, const Ref<Picture>& picture, int x, int y) override;
    void ShowURL(const std::string& url) override;
    std::filesystem::path SaveFile(const std::string& filter, const std::filesystem::path& proposal) override;
    void Launch(const std::filesystem::path& file) override;
    void InhibitScreenSaver() override;
    void ReleaseScreenSaver() override;
    void DelayScreenSaver() override;
    std::filesystem::path PreferencesFolder() override;
    bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan,
                                   CompressionSettings& settings) override;

  private:
    /// A desktop that holds its own saver off leaves the X server's alone, and the other way round.
    DBusInhibitor desktopSaver_;
    XServerSaver serverSaver_;
    AlertSound alertSound_;
};
