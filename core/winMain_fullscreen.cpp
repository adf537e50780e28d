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
    // ToggleFullscreen's own refresh came before the frame was restored; this one sees it.
    Refresh(true);
}

// The top rows of the screen call the hidden menu bar, and the first move below them sends it away.
void winMain::Event_MouseMove(Int32, Int32 y) {
    constexpr Int32 kMenuBarBand = 10;
    if (!FullScreen()) return;
    MenuBarVisible(y <= kMenuBarBand);
    SetFocus();
}
