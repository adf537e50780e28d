#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/Ref.h"

class Picture;
struct Color;
struct CompressionSettings;
struct MoviePlan;

/// Everything that reaches outside the process and blocks or can't be undone. There is one host at a time: the
/// desktop's, or one that records.
class Host {
  public:
    virtual ~Host() = default;

    /// Microseconds on a clock that only rises, and goes on while the machine sleeps.
    virtual double Microseconds() = 0;
    /// Plays the alert sound once; doesn't wait. Where no window of the program is in front, it asks for attention
    /// as well, which takes no focus: by its windows where the desktop has a request for that, elsewhere by one
    /// notification of the latest announcement.
    virtual void Beep() = 0;
    /// Keeps what a window announces, and takes a notification of the announcement before back. `bringForward`
    /// activates that window; it is called when the user chooses the notification.
    virtual void Announce(const std::string& text, const std::function<void()>& bringForward) = 0;
    /// Shows a text with an OK button and waits for it.
    virtual void MsgBox(const std::string& text) = 0;
    /// Lets the user pick a colour and waits; `color` is the proposal and the result. False, and no change, on Cancel.
    virtual bool SelectColor(Color& color, const std::string& prompt) = 0;
    /// Drags a text from the place of a press and waits until the user lets go. The pointer carries `picture`, which it
    /// holds at (x, y) in it; nil for the desktop's own look.
    virtual void DragText(const std::string& text, const Ref<Picture>& picture, int x, int y) = 0;
    /// Opens an address, already encoded, in the user's browser; doesn't wait. A failure is not told.
    virtual void ShowURL(const std::string& url) = 0;

    /// Asks for the file to save to and waits: `filter` says which files are shown, as FileType's text form. `proposal`
    /// is the name that is offered, in the folder where the search begins; without one, that is the user's for movies
    /// or the home folder. A name without an ending gets the proposal's. Asks about an existing file itself, and says
    /// of one that can't be written why not, as far as that is known before. Empty when the user cancels.
    virtual std::filesystem::path SaveFile(const std::string& filter, const std::filesystem::path& proposal) = 0;
    /// Opens a file with the desktop's program for its type; doesn't wait. May be called on any thread.
    virtual void Launch(const std::filesystem::path& file) = 0;

    /// Keeps the screen saver away until ReleaseScreenSaver. Each is harmless when repeated. `reason` says what
    /// is going on, to a user who asks the desktop why the screen stays on.
    virtual void InhibitScreenSaver(const std::string& reason) = 0;
    virtual void ReleaseScreenSaver() = 0;
    /// Counts as activity of the user; may be called at any rate.
    virtual void DelayScreenSaver() = 0;

    /// The user's folder for settings, which need not exist; empty when the user has no home.
    virtual std::filesystem::path PreferencesFolder() = 0;

    /// Shows the dialog in which the user chooses how a movie is encoded, with `testImage` as the preview, and waits.
    /// `settings` come in as the proposal and go out as chosen; False when the user cancels. Main thread.
    virtual bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan,
                                           CompressionSettings& settings) = 0;

    /// The host in use. There is one from RuntimeInit on.
    static Host& Current() { return *Installed(); }
    /// Puts a host in place of the one in use, which is destroyed; nil leaves none.
    static void Install(std::unique_ptr<Host> host) { Installed() = std::shared_ptr<Host>(std::move(host)); }

  private:
    static Ref<Host>& Installed() {
        static Ref<Host> host;
        return host;
    }
};

inline double Microseconds() { return Host::Current().Microseconds(); }
inline void Beep() { Host::Current().Beep(); }
inline void MsgBox(const std::string& text) { Host::Current().MsgBox(text); }
inline bool SelectColor(Color& color, const std::string& prompt) { return Host::Current().SelectColor(color, prompt); }
inline void ShowURL(const std::string& url) { Host::Current().ShowURL(url); }
