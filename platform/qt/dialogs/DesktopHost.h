#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "platform/Host.h"
#include "platform/linux/AlertSound.h"
#include "platform/linux/DBusInhibitor.h"
#include "platform/linux/Notification.h"
#include "platform/linux/XServerSaver.h"

/// Implements Host with the desktop that the program runs on.
class DesktopHost final : public Host {
  public:
    /// `applicationId` and `name` identify the program to services; `alertSound` is the fallback sound file.
    /// Sets an unset or relative HOME to the account's home folder and unsets a relative XDG_CONFIG_HOME.
    DesktopHost(const std::string& applicationId, const std::string& name, const std::filesystem::path& alertSound);

    double Microseconds() override;
    void Beep() override;
    void Announce(const std::string& text, const std::function<void()>& bringForward) override;
    void MsgBox(const std::string& text) override;
    bool SelectColor(Color& color, const std::string& prompt) override;
    void DragText(const std::string& text, const Ref<Picture>& picture, int x, int y) override;
    void ShowURL(const std::string& url) override;
    std::filesystem::path SaveFile(const std::string& filter, const std::filesystem::path& proposal) override;
    void Launch(const std::filesystem::path& file) override;
    void InhibitScreenSaver(const std::string& reason) override;
    void ReleaseScreenSaver() override;
    void DelayScreenSaver() override;
    std::filesystem::path PreferencesFolder() override;
    bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan,
                                   CompressionSettings& settings) override;

  private:
    /// Returns the parent for a dialog: the active modal dialog, else the visible, enabled window that was
    /// active last; nil if there is none. An unparented dialog could vanish behind the window that it blocks.
    QWidget* Owner() const;

    /// The windows that have been active, the most recent first.
    QList<QPointer<QWidget>> windows_;
    /// The screen savers of the desktop and of the X server are independent, so both are inhibited.
    DBusInhibitor desktopSaver_;
    XServerSaver serverSaver_;
    AlertSound alertSound_;
    Notification notification_;
    std::string announcement_;
    std::function<void()> bringForward_;
    QObject listener_;
};
