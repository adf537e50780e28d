#pragma once

#include <filesystem>
#include <functional>

#include "platform/Ref.h"

class Picture;
struct Color;
struct CompressionSettings;
struct MoviePlan;

/// The operations outside the process that block or can't be undone. Tests install a recording host.
class Host {
  public:
    virtual ~Host() = default;

    /// Returns the microseconds of a monotonic clock that also advances while the machine is suspended.
    virtual double Microseconds() = 0;
    /// Plays the alert sound once; doesn't wait. If no window is active, also asks for attention, without
    /// taking the focus: on X11 by a window hint, elsewhere by a notification of the latest announcement.
    virtual void Beep() = 0;
    /// Stores a window's announcement for Beep's notification, and withdraws the previous notification.
    /// `bringForward` activates the window; it is called when the user clicks the notification.
    virtual void Announce(const std::string& text, const std::function<void()>& bringForward) = 0;
    /// Shows a modal message box with an OK button.
    virtual void MsgBox(const std::string& text) = 0;
    /// Shows a modal dialog that changes `color`. Returns false, with no change, if the user cancels.
    virtual bool SelectColor(Color& color, const std::string& prompt) = 0;
    /// Drags a text and waits until the user releases the button. The pointer holds `picture` at its point
    /// (x, y); nil means the desktop's usual picture.
    virtual void DragText(const std::string& text, const Ref<Picture>& picture, int x, int y) = 0;
    /// Opens a percent-encoded URL in the user's browser; doesn't wait. Failures aren't reported.
    virtual void ShowURL(const std::string& url) = 0;

    /// Shows a modal Save dialog for files of `filter` (see FileType::ToString), which proposes the name and
    /// folder of `proposal`; a missing folder is replaced by the user's folder for movies or else home. A
    /// name without an extension gets the proposal's. Asks before a file is replaced. If a file can't be
    /// written, shows why and lets the user choose again. Returns the file; empty if the user cancels.
    virtual std::filesystem::path SaveFile(const std::string& filter, const std::filesystem::path& proposal) = 0;
    /// Opens a file with the desktop's program for its type; doesn't wait. May be called on any thread.
    virtual void Launch(const std::filesystem::path& file) = 0;

    // Inhibit or release the screen saver. A repeated call has no effect. The desktop may display `reason`.
    virtual void InhibitScreenSaver(const std::string& reason) = 0;
    virtual void ReleaseScreenSaver() = 0;
    /// Restarts the screen saver's idle time, as user input does. May be called at any rate.
    virtual void DelayScreenSaver() = 0;

    /// Returns the user's folder for settings, which need not exist; empty if the user has no home folder.
    virtual std::filesystem::path PreferencesFolder() = 0;

    /// Shows a modal dialog that changes `settings`, with `testImage` as the preview. Returns false, with no
    /// change, if the user cancels. Call this on the main thread.
    virtual bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan,
                                           CompressionSettings& settings) = 0;

    /// Returns the installed host. RuntimeInit installs the desktop's host; before that there is none.
    static Host& Current() { return *installed_; }
    /// Installs a host, or none if `host` is nil, and destroys the previous one.
    static void Install(std::unique_ptr<Host> host) { installed_ = std::shared_ptr<Host>(std::move(host)); }

  private:
    inline static Ref<Host> installed_;
};

inline double Microseconds() { return Host::Current().Microseconds(); }
inline void Beep() { Host::Current().Beep(); }
inline void MsgBox(const std::string& text) { Host::Current().MsgBox(text); }
inline bool SelectColor(Color& color, const std::string& prompt) { return Host::Current().SelectColor(color, prompt); }
inline void ShowURL(const std::string& url) { Host::Current().ShowURL(url); }
