#include "colour/winPrefs.h"
#include "core/winMain.h"
#include "movie/winMakeMovie.h"
#include "platform/EditableMovie.h"
#include "platform/Host.h"
#include "platform/targets.h"
#include "shell/AboutWindow.h"
#include "shell/build_values.h"
#include "shell/winHelp.h"
#include "shell/winSet.h"

// The caption of TimerStart is updated only here, not when the state changes.
void winMain::Event_EnableMenuItems() {
    if (IsDone) {
        TimerStart()->Text("Dismiss");
    } else if (IsRunning) {
        TimerStart()->Text("Stop");
    } else {
        TimerStart()->Text("Start");
        FileCreateMovie()->Enable();
        TimerSet()->Enable();
        FilePreferences()->Enable();
    }
}

/// Shows a dialog over the timer window, as a sheet or modally. A modal dialog suspends fullscreen.
void winMain::ShowDialog(Window& dialog) {
    if constexpr (targets::kModalDialogs) {
        const bool wasFullScreen = FullScreen();
        if (wasFullScreen) ToggleFullscreen(false);
        dialog.Top(Top() + 30);
        dialog.Left(Left() + (Width() - dialog.Width()) / 2);
        dialog.ShowModalWithin(*this);
        if (wasFullScreen) ToggleFullscreen(true);
    } else {
        dialog.ShowWithin(*this, -1);
    }
}

bool winMain::_TimerSet_Action() {
    ShowDialog(winSet::Instance());
    return true;
}

bool winMain::_TimerStart_Action() {
    ToggleTimer();
    return true;
}

bool winMain::_FilePreferences_Action() {
    ShowDialog(winPrefs::Instance());
    return true;
}

bool winMain::_FileCreateMovie_Action() {
    if (System::Quicktime::Installed()) {
        ShowDialog(winMakeMovie::Instance());
    } else {
        MsgBox("QuickTime needs to be installed to create movies.");
    }
    return true;
}

bool winMain::_ViewToggleFullscreen_Action() {
    if (FullScreen()) {
        LeaveFullscreen();
    } else {
        EnterFullscreen();
    }
    return true;
}

bool winMain::_HelpHelp_Action() {
    winHelp::Instance().Show();
    return true;
}

bool winMain::_HelpAbout_Action() {
    AboutWindow::Instance().Show(true);
    return true;
}

bool winMain::_HelpVisitWebsite_Action() {
    ShowURL(build::kWebsite);
    return true;
}

bool winMain::_HelpDonate_Action() {
    ShowURL(build::kDonationPage);
    return true;
}

void winMain::AddMenuHandlers(Window& window) {
    auto& timer = dynamic_cast<winMain&>(window);
    const auto handle = [&timer](const std::string& itemName, bool (winMain::*action)()) {
        timer._AddMenuHandler(itemName, [&timer, action] { return (timer.*action)(); });
    };
    handle("HelpAbout", &winMain::_HelpAbout_Action);
    handle("HelpHelp", &winMain::_HelpHelp_Action);
    handle("ViewToggleFullscreen", &winMain::_ViewToggleFullscreen_Action);
    handle("FileCreateMovie", &winMain::_FileCreateMovie_Action);
    handle("TimerSet", &winMain::_TimerSet_Action);
    handle("TimerStart", &winMain::_TimerStart_Action);
    handle("FilePreferences", &winMain::_FilePreferences_Action);
    handle("HelpVisitWebsite", &winMain::_HelpVisitWebsite_Action);
    handle("HelpDonate", &winMain::_HelpDonate_Action);
}
