#include <algorithm>
#include <utility>

#include "core/winMain.h"
#include "platform/Canvas.h"
#include "platform/Host.h"
#include "platform/Text.h"
#include "platform/Timer.h"
#include "shell/ScreensaverUtilities.h"

namespace {

/// Returns a quantity such as "1 minute" or "2 minutes"; empty for 0.
std::string Quantity(Int32 number, const std::string& unit) {
    if (number == 0) return "";
    return Str(number) + " " + unit + (number == 1 ? "" : "s");
}

std::string Remaining(Int32 seconds) {
    const std::string parts[] = {Quantity(seconds / 60, "minute"), Quantity(seconds % 60, "second")};
    if (parts[0].empty() && parts[1].empty()) return "no time";
    return parts[0] + (parts[0].empty() || parts[1].empty() ? "" : " ") + parts[1];
}

}  // namespace

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

// CurrentSeconds stays at whole seconds, so a resumed count repeats the second that had partly passed.
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

// During a count, the description is invalidated once a minute. Screen readers speak it only on request.
void winMain::UpdateDisplay() {
    Find<Canvas>("cvTime").Refresh(false);
    const Int32 described = IsRunning ? CurrentSeconds / 60 * 60 : CurrentSeconds;
    if (std::exchange(mDescribedSeconds, described) != described) Find<Canvas>("cvTime").DescriptionChanged();
}

// Every tick repaints, even when stopped, so that a changed colour shows within a quarter of a second.
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

std::string winMain::StateInWords() const {
    if (IsDone) return kTimeUp;
    const std::string state = IsRunning ? "Running, " : "Stopped, ";
    return state + Remaining(std::max(CurrentSeconds, 0)) + " left";
}

void winMain::AnnounceState() { Find<Canvas>("cvTime").Announce(StateInWords()); }
