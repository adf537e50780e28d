#pragma once

#include <string>

#include "platform/Color.h"
#include "platform/Graphics.h"
#include "platform/Menu.h"
#include "platform/Ref.h"
#include "platform/Values.h"
#include "platform/Window.h"
#include "settings/default_colours.h"

/// The timer window and hub of the program: the count-down, its clock picture, input, fullscreen and all commands.
/// Everything in it runs on the main event loop, but for Redraw, which may draw a movie's frame on a worker.
class winMain final : public Window {
  public:
    /// The one timer window; built when there is none, so it must not be called once the window has closed.
    static winMain& Instance();

    // The count-down (core/winMain_countdown.cpp). The remaining time is never counted down: each tick computes it from
    // the clock and the two values that Start has kept.
    bool IsRunning = false;
    /// The remaining time at the latest Start, in seconds.
    Int32 StartSeconds = 0;
    /// The clock at the latest Start, in microseconds.
    Int64 StartMicroSeconds = 0;
    double CurrentMinutes = 0;
    /// The time last confirmed in the Set Timer dialog, its memory; they don't steer the count.
    Int32 SetMinutes = 0;
    Int32 SetSeconds = 0;
    /// The remaining time in whole seconds, 0 or more: what the wedge shows.
    Int32 CurrentSeconds = 0;

    /// What stands here shows until ReadPrefs has run, and when it can't.
    Color Color_Window_Background = default_colours::kWindowBackground;
    Color Color_Clock_Wedge = default_colours::kClockWedge;
    Color Color_Clock_Frame = default_colours::kClockFrame;
    Color Color_Clock_Face = default_colours::kClockFace;

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
    /// Asks for a repaint of the clock.
    void UpdateDisplay();
    void TimerRun_Action();
    void TimerDone_Action();

    // The clock picture (core/winMain_redraw.cpp).
    /// Paints the whole picture on any surface; nil is the timer's own canvas. A negative `seconds` means
    /// CurrentSeconds; `scale` is the clock's size relative to the shorter side of the surface. Changes nothing here.
    void Redraw(Ref<Graphics> g, Int32 seconds, double scale, bool hideIcon, bool showTimeUp);
    /// A size, in pixels and no smaller than 8, at which `text` in the font of `g` is about `maxWidth` wide. Leaves the
    /// last size tried as the text size of `g`.
    Int32 GetTextSize(Graphics& g, const std::string& text, Int32 maxWidth);
    void cvTime_Paint(const Ref<Graphics>& g);

    // What a screen reader is told of the clock (core/winMain_accessible.cpp).
    /// The state and the remaining time in words.
    std::string InWords() const;
    /// Has the state said that has just been entered, or the time that has just been set.
    void AnnounceState();
    /// Lets the words be asked for again when the time has been set, or has come to another minute.
    void RenewWords();

    // Input (core/winMain_input.cpp).
    bool cvTime_MouseDown(Int32 x, Int32 y);
    void cvTime_MouseMove(Int32 x, Int32 y);
    void Event_Open() override;
    void Event_Resizing() override;
    void Event_Resized() override;
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

    // Create Movie (movie/winMain_movie.cpp).
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

    // The entries of the menu bar (shell/winMain_menu_items.cpp).
    Ref<MenuItem> HelpMenu() const;
    Ref<AppleMenuItem> HelpAbout() const;
    Ref<MenuItem> UntitledSeparator0() const;
    Ref<MenuItem> HelpVisitWebsite() const;
    Ref<MenuItem> HelpDonate() const;
    Ref<MenuItem> UntitledSeparator() const;
    Ref<MenuItem> HelpHelp() const;
    Ref<MenuItem> ViewMenu() const;
    Ref<MenuItem> ViewToggleFullscreen() const;
    Ref<MenuItem> TimerMenu() const;
    Ref<MenuItem> TimerStart() const;
    Ref<MenuItem> TimerSet() const;
    Ref<MenuItem> EditMenu() const;
    Ref<MenuItem> EditSelectAll() const;
    Ref<MenuItem> UntitledMenu0() const;
    Ref<MenuItem> EditClear() const;
    Ref<MenuItem> EditPaste() const;
    Ref<MenuItem> EditCopy() const;
    Ref<MenuItem> EditCut() const;
    Ref<MenuItem> UntitledMenu1() const;
    Ref<MenuItem> EditUndo() const;
    Ref<MenuItem> FileMenu() const;
    Ref<QuitMenuItem> FileQuit() const;
    Ref<MenuItem> FileCreateMovie() const;
    Ref<PrefsMenuItem> FilePreferences() const;

  private:
    void Layout() override;
    void CreateControls() override;
    void _CreateControls0();
    void AddMenuHandlers(Window& window) override;
    void DrawTimeUp(Graphics& g, double diameter);
    void ShowDialog(Window& dialog);

    // The window's frame when fullscreen was last entered.
    Int32 mLeft = 0;
    Int32 mTop = 0;
    Int32 mWidth = 0;
    Int32 mHeight = 0;

    /// The time that a screen reader was told of last.
    Int32 mToldSeconds = 0;
};
