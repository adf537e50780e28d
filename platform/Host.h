#pragma once

#include <filesystem>
#include <functional>

#include "platform/Ref.h"

class Picture;
struct Color;
struct CompressionSettings;
struct MoviePlan;

/// What reaches outside the process and blocks or can't be undone. One is in use: the desktop's or a recorder.
class Host {
  public:
    virtual ~Host() = default;

    /// Microseconds on a clock that only rises, and goes on while the machine sleeps.
    virtual double Microseconds() = 0;
    /// Plays the alert sound once; doesn't wait. Where no window of the program is in front, also asks for
    /// attention without taking the focus: by a request of the windows where the desktop knows one, else by
    /// one notification of the latest announcement.
    virtual void Beep() = 0;
    /// Keeps what a window announces, and withdraws a notification of the announcement before. `bringForward`
    /// activates that window; it is called when the user chooses the notification.
    virtual void Announce(const std::string& text, const std::function<void()>& bringForward) = 0;
    /// Shows a text with an OK button and waits for it.
    virtual void MsgBox(const std::string& text) = 0;
    /// Lets the user pick a colour and waits. `color` is the proposal and the result; False, unchanged, on Cancel.
    virtual bool SelectColor(Color& color, const std::string& prompt) = 0;
    /// Drags a text from where the button was pressed, and waits until the user lets go. The pointer holds
    /// `picture` at (x, y) in it; nil for the desktop's own look.
    virtual void DragText(const std::string& text, const Ref<Picture>& picture, int x, int y) = 0;
    /// Opens an address, already encoded, in the user's browser; doesn't wait. A failure isn't reported.
    virtual void ShowURL(const std::string& url) = 0;

    /// Asks for the file to save to and waits. `filter`, a FileType's text form, says which files are shown.
    /// `proposal` is the name that is offered, in the folder where the search begins; without a folder, that is the
    /// user's for movies or the home folder. A name without an ending gets the proposal's. Asks before a file is
    /// replaced, and says why one can't be written if that is known by then. Empty when the user cancels.
    virtual std::filesystem::path SaveFile(const std::string& filter, const std::filesystem::path& proposal) = 0;
    /// Opens a file with the desktop's program for its type; doesn't wait. May be called on any thread.
    virtual void Launch(const std::filesystem::path& file) = 0;

    /// Inhibit and release the screen saver, once or again. The desktop may show the user `reason`.
    virtual void InhibitScreenSaver(const std::string& reason) = 0;
    virtual void ReleaseScreenSaver() = 0;
    /// Counts as activity of the user; may be called at any rate.
    virtual void DelayScreenSaver() = 0;

    /// The user's folder for settings, which need not exist; empty when the user has no home.
    virtual std::filesystem::path PreferencesFolder() = 0;

    /// Lets the user choose how a movie is encoded, with `testImage` as the preview, and waits. `settings`
    /// are the proposal and the result; False when the user cancels. Main thread.
    virtual bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan,
                                           CompressionSettings& settings) = 0;

    /// The host in use. There is one from RuntimeInit on.
    static Host& Current() { return *installed_; }
    /// Puts a host in place of the one in use, which is destroyed; nil leaves none.
    static void Install(std::unique_ptr<Host> host) { installed_ = std::shared_ptr<Host>(std::move(host)); }

  private:
    inline static Ref<Host> installed_;
};

inline double Microseconds() { return Host::Current().Microseconds(); }
inline void Beep() { Host::Current().Beep(); }
inline void MsgBox(const std::string& text) { Host::Current().MsgBox(text); }
inline bool SelectColor(Color& color, const std::string& prompt) { return Host::Current().SelectColor(color, prompt); }
inline void ShowURL(const std::string& url) { Host::Current().ShowURL(url); }
