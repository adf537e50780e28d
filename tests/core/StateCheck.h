#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/winMain.h"
#include "platform/Timer.h"
#include "tests/support/RecordingHost.h"

/// What holds of the count-down in every state. Judges each state together with the one before.
class StateCheck {
  public:
    explicit StateCheck(RecordingHost& host) : host_(&host) {}

    // What is about to come.
    void TickComes() { delaysDue_ += winMain::Instance().IsRunning; }
    void BeepIsDue() { ++beepsDue_; }
    /// Whether the user may set a time.
    void MayRise(bool on) { mayRise_ = on; }

    void Run() {
        const winMain& timer = winMain::Instance();
        ASSERT_FALSE(timer.IsRunning && timer.IsDone);
        ASSERT_TRUE(timer.IsRunning ? timer.CurrentSeconds > 0 : timer.CurrentSeconds >= 0);
        ASSERT_TRUE(!timer.IsDone || timer.CurrentSeconds == 0);
        ASSERT_TRUE(mayRise_ || timer.CurrentSeconds <= secondsBefore_);
        ASSERT_EQ(timer.Find<Timer>("TimerRun").Mode(), Timer::Modes::Repeat);
        ASSERT_EQ(timer.Find<Timer>("TimerDone").Mode(), timer.IsDone ? Timer::Modes::Repeat : Timer::Modes::Off);
        secondsBefore_ = timer.CurrentSeconds;

        for (const std::string& call : std::exchange(host_->calls, {})) {
            if (call == "InhibitScreenSaver") isInhibited_ = true;
            if (call == "ReleaseScreenSaver") isInhibited_ = false;
            beepsDue_ -= call == "Beep";
            delaysDue_ -= call == "DelayScreenSaver";
        }
        ASSERT_EQ(isInhibited_, timer.IsRunning);
        ASSERT_TRUE(beepsDue_ == 0 && delaysDue_ == 0);
        ASSERT_TRUE(host_->messages.empty()) << host_->messages[0];
    }

  private:
    RecordingHost* host_;
    Int32 secondsBefore_ = 0;
    bool mayRise_ = false;
    bool isInhibited_ = false;
    int beepsDue_ = 0;
    int delaysDue_ = 0;
};
