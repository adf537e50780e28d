#include <gmock/gmock.h>

#include "platform/Timer.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CountdownTest : public TimerWindowTest {
  protected:
    CountdownTest() {
        host.microseconds = 5'000'000.75;
        Timer();
        host.calls.clear();
    }

    static void ExpectState(bool isRunning, bool isDone, Int32 seconds) {
        EXPECT_EQ(Timer().IsRunning, isRunning);
        EXPECT_EQ(Timer().IsDone, isDone);
        EXPECT_EQ(Timer().CurrentSeconds, seconds);
        EXPECT_EQ(Named("TimerDone").Mode(), isDone ? Timer::Modes::Repeat : Timer::Modes::Off);
        EXPECT_EQ(Named("TimerRun").Mode(), Timer::Modes::Repeat);
    }
    static ::Timer& Named(const char* name) { return Timer().Find<::Timer>(name); }
};

TEST_F(CountdownTest, BeginsEmptyAndThenRefusesToStart) {
    EXPECT_EQ(Named("TimerRun").Period(), 250);
    EXPECT_EQ(Named("TimerDone").Period(), 1000);
    ExpectState(false, false, 0);
    Timer().ToggleTimer();
    TickAfter(2);
    ExpectState(false, false, 0);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(CountdownTest, GoesThroughItsStatesAndHoldsOffTheScreenSaverDuringTheRunAlone) {
    StartFrom(2);
    ExpectState(true, false, 2);
    TickAfter(1);
    ExpectState(true, false, 1);
    Timer().ToggleTimer();
    TickAfter(100);
    ExpectState(false, false, 1);
    Timer().ToggleTimer();
    TickAfter(1);
    ExpectState(false, true, 0);
    TickAfter(0.25);
    Timer().TimerDone_Action();
    Timer().TimerDone_Action();
    Timer().ToggleTimer();
    ExpectState(false, false, 0);
    Timer().ToggleTimer();
    ExpectState(false, false, 0);
    EXPECT_THAT(host.calls,
                ElementsAre("InhibitScreenSaver", "DelayScreenSaver", "ReleaseScreenSaver", "InhibitScreenSaver",
                            "DelayScreenSaver", "ReleaseScreenSaver", "Beep", "Beep"));
}

TEST_F(CountdownTest, DropsFractionsAndNeverRounds) {
    StartFrom(10);
    TickAfter(0.9999);
    EXPECT_EQ(Timer().CurrentSeconds, 10);
    TickAfter(0.000'099'25);  // 999,999.25 microseconds after a start that was cut to the whole microsecond below
    EXPECT_EQ(Timer().CurrentSeconds, 9);
}

TEST_F(CountdownTest, ALateTickShowsTheTrueTimeAtOnce) {
    StartFrom(600);
    TickAfter(431.3);  // a stalled process, or a machine that slept
    ExpectState(true, false, 169);
    TickAfter(1e9);
    ExpectState(false, true, 0);
}

TEST_F(CountdownTest, AStopLosesThePartOfASecondInTheUsersFavour) {
    StartFrom(100);
    TickAfter(5.9);
    for (int i = 0; i < 20; ++i) {  // started anew within each second, the count never falls
        Timer().ToggleTimer();
        host.microseconds += 60e6;
        Timer().ToggleTimer();
        TickAfter(0.9);
    }
    ExpectState(true, false, 95);
}

}  // namespace
