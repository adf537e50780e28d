#pragma once

#include <memory>
#include <string>

#include "platform/Color.h"
#include "platform/Graphics.h"
#include "platform/Menu.h"
#include "platform/Ref.h"
#include "platform/Values.h"
#include "platform/Window.h"
#include "settings/clock_colours.h"

/// The square of the timer's canvas in which the status icon is drawn and clicks are accepted, in pixels. It
/// doesn't depend on the size of the window or of the icon.
struct StatusIcon {
    static constexpr Int32 kLeft = 10;
    static constexpr Int32 kTop = 10;
    static constexpr Int32 kSide = 17;

    static constexpr bool Contains(Int32 x, Int32 y) {
        return x >= kLeft && x < kLeft + kSide && y >= kTop && y < kTop + kSide;
    }
};

/// The timer window and hub of the program: count-down, clock picture, input, fullscreen and all commands.
/// Main thread only, except for Redraw, which a worker also calls to draw the frames of a movie.
class winMain final : public Window, public ClockColours {
  public:
    static constexpr Int32 kSecondsPerTurn = 3600;
    static constexpr Int32 kTickMilliseconds = 250;
    static constexpr Int32 kBeepMilliseconds = 1000;

    /// Returns the only timer window, and builds it if there is none. Must not be called after it has closed.
    static winMain& Instance() { return ImplicitInstance<winMain>("winMain.winMain"); }

    // The count-down (core/winMain_countdown.cpp). The remaining time is never decremented: each tick
    // computes it from the clock and the two values that Start stored.
    bool IsRunning = false;
    /// The values of CurrentSeconds and Microseconds() at the latest Start.
    Int32 StartSeconds = 0;
    Int64 StartMicroSeconds = 0;
    /// Unused, but kept, because public names are fixed.
    double CurrentMinutes = 0;
    /// The time last confirmed in the Set Timer dialog, which shows it again. The count-down doesn't use it.
    Int32 SetMinutes = 0;
    Int32 SetSeconds = 0;
    /// The remaining time in whole seconds, at least 0. The wedge shows it.
    Int32 CurrentSeconds = 0;

    /// True from the end of the count until the alert is dismissed. Never true together with IsRunning.
    bool IsDone = false;

    /// Dismisses the alert if it is on, else stops the count if it is running, else starts the count.
    void ToggleTimer();
    /// Begins or resumes the count. The count stays stopped if no time is left.
    void Start();
    void Stop();
    /// Begins the alert; Dismiss ends it.
    void Done();
    void Dismiss();
    /// Requests a repaint. Invalidates the accessible description if the time was set or a minute passed.
    void UpdateDisplay();
    void TimerRun_Action();
    void TimerDone_Action();

    // The clock picture (core/winMain_redraw.cpp).
    /// Paints the picture on `g` or, if `g` is nil, on the timer's canvas. A negative `seconds` means
    /// CurrentSeconds. `scale` is the clock's size relative to the surface's shorter side. Changes no field.
    void Redraw(Ref<Graphics> g, Int32 seconds, double scale, bool hideIcon, bool showTimeUp);
    /// Returns the font size in pixels, at least 8, at which `text` is about `maxWidth` wide. Changes `g`.
    Int32 GetTextSize(Graphics& g, const std::string& text, Int32 maxWidth);
    void cvTime_Paint(const Ref<Graphics>& g);

    // Accessibility (core/winMain_countdown.cpp).
    std::string StateInWords() const;
    /// Makes a screen reader announce the state and the remaining time.
    void AnnounceState();

    // The window and its input (core/winMain.cpp).
    bool cvTime_MouseDown(Int32 x, Int32 y);
    void cvTime_MouseMove(Int32 x, Int32 y);
    void Event_Open() override;
    void Event_Resizing() override { UpdateDisplay(); }
    void Event_Resized() override { UpdateDisplay(); }
    void Event_Close() override;
    bool Event_KeyDown(const std::string& key) override;

    // Fullscreen (core/winMain_fullscreen.cpp).
    /// Enters or leaves fullscreen. Only the menu command also saves and restores the window's frame.
    void ToggleFullscreen(bool on);
    void Event_MouseMove(Int32 x, Int32 y) override;

    // The settings file with the colours (settings/winMain_settings.cpp).
    void ReadPrefs();
    void WritePrefs();

    // Commands of the menu bar (shell/winMain_commands.cpp).
    void Event_EnableMenuItems() override;
    bool _HelpAbout_Action();
    bool _HelpHelp_Action();
    bool _TimerSet_Action();
    bool _TimerStart_Action();
    bool _FilePreferences_Action();
    bool _FileCreateMovie_Action();
    bool _ViewToggleFullscreen_Action();
    bool _HelpVisitWebsite_Action();
    bool _HelpDonate_Action();

    // The entries of the menu bar.
    Ref<MenuItem> HelpMenu() const { return MenuEntry("HelpMenu"); }
    Ref<AppleMenuItem> HelpAbout() const { return MenuEntry<AppleMenuItem>("HelpAbout"); }
    Ref<MenuItem> UntitledSeparator0() const { return MenuEntry("UntitledSeparator0"); }
    Ref<MenuItem> HelpVisitWebsite() const { return MenuEntry("HelpVisitWebsite"); }
    Ref<MenuItem> HelpDonate() const { return MenuEntry("HelpDonate"); }
    Ref<MenuItem> UntitledSeparator() const { return MenuEntry("UntitledSeparator"); }
    Ref<MenuItem> HelpHelp() const { return MenuEntry("HelpHelp"); }
    Ref<MenuItem> ViewMenu() const { return MenuEntry("ViewMenu"); }
    Ref<MenuItem> ViewToggleFullscreen() const { return MenuEntry("ViewToggleFullscreen"); }
    Ref<MenuItem> TimerMenu() const { return MenuEntry("TimerMenu"); }
    Ref<MenuItem> TimerStart() const { return MenuEntry("TimerStart"); }
    Ref<MenuItem> TimerSet() const { return MenuEntry("TimerSet"); }
    Ref<MenuItem> EditMenu() const { return MenuEntry("EditMenu"); }
    Ref<MenuItem> EditSelectAll() const { return MenuEntry("EditSelectAll"); }
    Ref<MenuItem> UntitledMenu0() const { return MenuEntry("UntitledMenu0"); }
    Ref<MenuItem> EditClear() const { return MenuEntry("EditClear"); }
    Ref<MenuItem> EditPaste() const { return MenuEntry("EditPaste"); }
    Ref<MenuItem> EditCopy() const { return MenuEntry("EditCopy"); }
    Ref<MenuItem> EditCut() const { return MenuEntry("EditCut"); }
    Ref<MenuItem> UntitledMenu1() const { return MenuEntry("UntitledMenu1"); }
    Ref<MenuItem> EditUndo() const { return MenuEntry("EditUndo"); }
    Ref<MenuItem> FileMenu() const { return MenuEntry("FileMenu"); }
    Ref<QuitMenuItem> FileQuit() const { return MenuEntry<QuitMenuItem>("FileQuit"); }
    Ref<MenuItem> FileCreateMovie() const { return MenuEntry("FileCreateMovie"); }
    Ref<PrefsMenuItem> FilePreferences() const { return MenuEntry<PrefsMenuItem>("FilePreferences"); }

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();
    void AddMenuHandlers(Window& window) override;
    /// Saves the window's frame and enters fullscreen; LeaveFullscreen does the reverse.
    void EnterFullscreen();
    void LeaveFullscreen();
    void DrawTimeUp(Graphics& g, double diameter);
    void ShowDialog(Window& dialog);

    template <class Item = MenuItem>
    Ref<Item> MenuEntry(const char* name) const {
        return std::dynamic_pointer_cast<Item>(MenuBar()->Child(name).Shared());
    }

    static constexpr const char* kTimeUp = "Time is Up!";

    // The window's frame when the menu command last entered fullscreen.
    Int32 mLeft = 0, mTop = 0, mWidth = 0, mHeight = 0;

    /// The remaining time in seconds for which the accessible description was last invalidated.
    Int32 mDescribedSeconds = 0;
};
