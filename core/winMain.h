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

/// The square in the timer's canvas that the status icon is drawn in and that reacts to clicks, in pixels. It
/// stays the same whatever the sizes of window and picture.
struct StatusIcon {
    static constexpr Int32 kLeft = 10;
    static constexpr Int32 kTop = 10;
    static constexpr Int32 kSide = 17;

    static constexpr bool Contains(Int32 x, Int32 y) {
        return x >= kLeft && x < kLeft + kSide && y >= kTop && y < kTop + kSide;
    }
};

/// The timer window and hub of the program: count-down, clock picture, input, fullscreen and all commands. It
/// runs on the main event loop, except Redraw, which also draws the frames of a movie on a worker.
class winMain final : public Window, public ClockColours {
  public:
    /// The time that a full turn of the clock stands for.
    static constexpr Int32 kSecondsPerTurn = 3600;
    static constexpr Int32 kTickMilliseconds = 250;
    static constexpr Int32 kBeepMilliseconds = 1000;

    /// The one timer window; built when there is none, so it must not be called once the window has closed.
    static winMain& Instance() { return ImplicitInstance<winMain>("winMain.winMain"); }

    // The count-down (core/winMain_countdown.cpp). The remaining time is never decremented: each tick
    // computes it from the clock and the two values that Start stored.
    bool IsRunning = false;
    /// The remaining time and the clock's reading at the latest Start.
    Int32 StartSeconds = 0;
    Int64 StartMicroSeconds = 0;
    /// Unused. It stays, as all public names here do.
    double CurrentMinutes = 0;
    /// The time last confirmed in Set Timer, which shows it again. The count doesn't use it.
    Int32 SetMinutes = 0;
    Int32 SetSeconds = 0;
    /// The remaining time in whole seconds, 0 or more: what the wedge shows.
    Int32 CurrentSeconds = 0;

    /// The count has ended and the alert isn't dismissed yet. Never true together with IsRunning.
    bool IsDone = false;

    /// The one command of the timer: dismisses the alert, else stops a running count, else starts.
    void ToggleTimer();
    /// Begins or resumes the count. Does nothing when no time is left.
    void Start();
    void Stop();
    /// Enters and leaves the alert.
    void Done();
    void Dismiss();
    /// Asks for a repaint. If the time was set or another minute began, also refreshes the description.
    void UpdateDisplay();
    void TimerRun_Action();
    void TimerDone_Action();

    // The clock picture (core/winMain_redraw.cpp).
    /// Paints the whole picture on a surface; nil means the timer's canvas. A negative `seconds` means
    /// CurrentSeconds. `scale` is the clock's size relative to the surface's shorter side. No field changes.
    void Redraw(Ref<Graphics> g, Int32 seconds, double scale, bool hideIcon, bool showTimeUp);
    /// The font size, from 8 pixels, at which `text` is about `maxWidth` wide. Leaves `g` at the last one tried.
    Int32 GetTextSize(Graphics& g, const std::string& text, Int32 maxWidth);
    void cvTime_Paint(const Ref<Graphics>& g);

    // What a screen reader is told of the count-down (core/winMain_countdown.cpp).
    std::string StateInWords() const;
    /// Has a screen reader say the new state, or the time just set.
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
    /// Enters or leaves fullscreen, without saving or restoring the window's frame as the command does.
    void ToggleFullscreen(bool on);
    void Event_MouseMove(Int32 x, Int32 y) override;

    // The colours on disk (settings/winMain_settings.cpp).
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
    /// The command's two halves: they save and restore the window's frame.
    void EnterFullscreen();
    void LeaveFullscreen();
    void DrawTimeUp(Graphics& g, double diameter);
    void ShowDialog(Window& dialog);

    template <class Item = MenuItem>
    Ref<Item> MenuEntry(const char* name) const {
        return std::dynamic_pointer_cast<Item>(MenuBar()->Child(name).Shared());
    }

    static constexpr const char* kTimeUp = "Time is Up!";

    // The window's frame at the moment when fullscreen was last entered.
    Int32 mLeft = 0, mTop = 0, mWidth = 0, mHeight = 0;

    /// The remaining time in the description that a screen reader got last.
    Int32 mDescribedSeconds = 0;
};
