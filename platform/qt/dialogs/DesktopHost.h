#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "platform/Host.h"
#include "platform/linux/AlertSound.h"
#include "platform/linux/DBusInhibitor.h"
#include "platform/linux/Notification.h"
#include "platform/linux/XServerSaver.h"

/// The real host: the desktop that the program runs on.
class DesktopHost final : public Host {
  public:
    /// `applicationId` and `name` tell services who asks; `alertSound` is the file to play where the desktop
    /// has no sound. A HOME that is unset or relative becomes that of the user's account, for the whole
    /// process; a relative XDG_CONFIG_HOME is unset.
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
    /// What a dialog belongs to: the window that is active or, while none of ours is, was last. Nil when
    /// there is none. A modal dialog that belonged to no window could vanish behind the one that it blocks.
    QWidget* Owner() const;

    /// The windows that have been active, the latest first.
    QList<QPointer<QWidget>> windows_;
    /// Inhibiting the desktop's saver doesn't stop the X server's, nor vice versa, so both are inhibited.
    DBusInhibitor desktopSaver_;
    XServerSaver serverSaver_;
    AlertSound alertSound_;
    Notification notification_;
    std::string announcement_;
    std::function<void()> bringForward_;
    QObject listener_;
};
