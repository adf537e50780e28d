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

/// The square of the status icon in the timer's canvas, in pixels. It is fixed, whatever the size of the window.
struct StatusIcon {
    static constexpr Int32 kLeft = 10;
    static constexpr Int32 kTop = 10;
    static constexpr Int32 kSide = 17;

    static constexpr bool Contains(Int32 x, Int32 y) {
        return x >= kLeft && x < kLeft + kSide && y >= kTop && y < kTop + kSide;
    }
};

/// The timer window and hub of the program: the count-down, its clock picture, input, fullscreen and all commands.
/// Everything in it runs on the main event loop, but for Redraw, which may draw a movie's frame on a worker.
class winMain final : public Window, public ClockColours {
  public:
    /// What a full turn of the clock means.
    static constexpr Int32 kSecondsPerTurn = 3600;
    static constexpr Int32 kTickMilliseconds = 250;
    static constexpr Int32 kBeepMilliseconds = 1000;

    /// The one timer window; built when there is none, so it must not be called once the window has closed.
    static winMain& Instance() { return ImplicitInstance<winMain>("winMain.winMain"); }

    // The count-down (core/winMain_countdown.cpp). The remaining time is never counted down: each tick computes it from
    // the clock and the two values that Start has kept.
    bool IsRunning = false;
    /// The remaining time and the clock at the latest Start.
    Int32 StartSeconds = 0;
    Int64 StartMicroSeconds = 0;
    double CurrentMinutes = 0;
    /// The time last confirmed in the Set Timer dialog, its memory; they don't steer the count.
    Int32 SetMinutes = 0;
    Int32 SetSeconds = 0;
    /// The remaining time in whole seconds, 0 or more: what the wedge shows.
    Int32 CurrentSeconds = 0;

    /// The count has ended and the alert isn't dismissed yet; never true together with IsRunning.
    bool IsDone = false;

    /// The one command of the timer: dismisses the alert, else stops a running count, else starts.
    void ToggleTimer();
    /// Begins or resumes the count; with no time left, nothing happens.
    void Start();
    void Stop();
    /// Enters and leaves the alert.
    void Done();
    void Dismiss();
    /// Asks for a repaint, and tells a screen reader when the time has been set or has come to another minute.
    void UpdateDisplay();
    void TimerRun_Action();
    void TimerDone_Action();

    // The clock picture (core/winMain_redraw.cpp).
    /// Paints the whole picture on any surface; nil is the timer's own canvas. A negative `seconds` means
    /// CurrentSeconds; `scale` is the clock's size relative to the shorter side of the surface. Changes nothing here.
    void Redraw(Ref<Graphics> g, Int32 seconds, double scale, bool hideIcon, bool showTimeUp);
    /// The size, 8 pixels or more, at which `text` is about `maxWidth` wide. `g` keeps the last size that was tried.
    Int32 GetTextSize(Graphics& g, const std::string& text, Int32 maxWidth);
    void cvTime_Paint(const Ref<Graphics>& g);

    // What a screen reader is told of the count-down (core/winMain_countdown.cpp).
    std::string InWords() const;
    /// Has the state said that has just been entered, or the time that has just been set.
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
    /// Enters or leaves fullscreen, as told; unlike the command, it neither saves nor restores the window's frame.
    void ToggleFullscreen(bool on);
    bool _ViewToggleFullscreen_Action();
    void Event_MouseMove(Int32 x, Int32 y) override;

    // The colours on disk (settings/winMain_settings.cpp).
    void ReadPrefs();
    void WritePrefs();

    // Create Movie (movie/winMakeMovie.cpp).
    bool _FileCreateMovie_Action();

    // Commands of the menu bar (shell/winMain_commands.cpp).
    void Event_EnableMenuItems() override;
    bool _HelpAbout_Action();
    bool _HelpHelp_Action();
    bool _TimerSet_Action();
    bool _TimerStart_Action();
    bool _FilePreferences_Action();
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
    void DrawTimeUp(Graphics& g, double diameter);
    void ShowDialog(Window& dialog);

    template <class Item = MenuItem>
    Ref<Item> MenuEntry(const char* name) const {
        return std::dynamic_pointer_cast<Item>(MenuBar()->Child(name).Shared());
    }

    static constexpr const char* kTimeUp = "Time is Up!";

    // The window's frame when fullscreen was last entered.
    Int32 mLeft = 0;
    Int32 mTop = 0;
    Int32 mWidth = 0;
    Int32 mHeight = 0;

    /// The time that a screen reader was told of last.
    Int32 mToldSeconds = 0;
};
