#include <algorithm>

#include "core/winMain.h"
#include "platform/Canvas.h"
#include "platform/Host.h"
#include "platform/Timer.h"
#include "shell/ScreensaverUtilities.h"

void winMain::ToggleTimer() {
    if (IsDone) {
        Dismiss();
    } else if (IsRunning) {
        Stop();
    } else {
        Start();
    }
}

void winMain::Start() {
    StartSeconds = CurrentSeconds;
    StartMicroSeconds = ToInt64(Microseconds());
    if (StartSeconds <= 0) return;
    IsRunning = true;
    Find<Timer>("TimerRun").Mode(Timer::Modes::Repeat);
    ScreensaverUtilities::DisableScreensaverWin();
    Find<Canvas>("cvTime").Refresh(false);
    AnnounceState();
}

// The part of a second that has passed is lost in the user's favour: the next run counts whole seconds again.
void winMain::Stop() {
    IsRunning = false;
    ScreensaverUtilities::EnableScreensaverWin();
    Find<Canvas>("cvTime").Refresh(false);
    AnnounceState();
}

void winMain::Done() {
    IsDone = true;
    Find<Timer>("TimerDone").Mode(Timer::Modes::Repeat);
    Find<Canvas>("cvTime").Refresh(false);
    AnnounceState();
}

void winMain::Dismiss() {
    Find<Timer>("TimerDone").Mode(Timer::Modes::Off);
    IsDone = false;
    Find<Canvas>("cvTime").Refresh(false);
    AnnounceState();
}

void winMain::UpdateDisplay() {
    Find<Canvas>("cvTime").Refresh(false);
    RenewWords();
}

// The clock is repainted at each tick in every state, so that a changed colour shows within a quarter of a second.
void winMain::TimerRun_Action() {
    if (IsRunning) {
        ScreensaverUtilities::DelayScreensaverMac();
        const Int64 elapsed = ToInt64(Microseconds() - static_cast<double>(StartMicroSeconds));
        const Int32 elapsedSeconds = ToInt32(static_cast<double>(elapsed) / 1000000.0);
        CurrentSeconds = std::max(StartSeconds - elapsedSeconds, 0);
        if (CurrentSeconds == 0) {
            Stop();
            Done();
        }
    }
    UpdateDisplay();
}

void winMain::TimerDone_Action() { Beep(); }
