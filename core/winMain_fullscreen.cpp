#include "core/winMain.h"

void winMain::ToggleFullscreen(bool on) {
    FullScreen(on);
    MenuBarVisible(!on);
    Refresh(true);
}

void winMain::EnterFullscreen() {
    mTop = Top();
    mLeft = Left();
    mWidth = Width();
    mHeight = Height();
    Maximize();
    ToggleFullscreen(true);
    Refresh(true);
}

void winMain::LeaveFullscreen() {
    ToggleFullscreen(false);
    Top(mTop);
    Left(mLeft);
    Width(mWidth);
    Height(mHeight);
    // ToggleFullscreen refreshed before the frame was restored, so the window is refreshed again.
    Refresh(true);
}

// In fullscreen, the menu bar is shown only while the pointer is in the top rows of the screen.
void winMain::Event_MouseMove(Int32, Int32 y) {
    constexpr Int32 kMenuBarBand = 10;
    if (!FullScreen()) return;
    MenuBarVisible(y <= kMenuBarBand);
    SetFocus();
}
