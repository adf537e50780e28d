#pragma once

#include <gmock/gmock.h>

#include "core/winMain.h"
#include "shell/App.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingHost.h"

/// A fresh timer window over a fresh host for each test. The window is opened by the first use of Timer().
class TimerWindowTest : public testing::Test {
  protected:
    TimerWindowTest() { RuntimeRegisterAppObject(std::make_unique<App>()); }
    ~TimerWindowTest() override { End(Timer()); }

    static winMain& Timer() { return winMain::Instance(); }

    /// Sets a time, as the Set Timer dialog does, and starts the count.
    static void StartFrom(Int32 seconds) {
        Timer().CurrentSeconds = seconds;
        Timer().ToggleTimer();
    }
    /// Lets the clock go on and the tick come.
    void TickAfter(double seconds) {
        host.microseconds += seconds * 1e6;
        Timer().TimerRun_Action();
    }

    RecordingHost& host = RecordingHost::InstallNew();
};
