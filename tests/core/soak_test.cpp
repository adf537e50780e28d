#include <malloc.h>

#include <random>

#include "tests/core/StateCheck.h"
#include "tests/support/TimerWindowTest.h"

namespace {

constexpr double kHour = 3600e6;

class SoakTest : public TimerWindowTest {
  protected:
    SoakTest() {
        for (const char* timer : {"TimerRun", "TimerDone"})
            Timer().Find<::Timer>(timer).Period(1'000'000'000);  // they fire when the test says so
    }

    /// Count after count, four ticks a second, each alert of some beeps. Now and then the user stops and starts, or the
    /// machine sleeps.
    void RunUntil(double microseconds) {
        while (host.microseconds < microseconds && !HasFatalFailure()) {
            if (Timer().IsDone) {
                check_.BeepIsDue();
                Timer().TimerDone_Action();
            }
            if (Timer().IsDone ? OneIn(20) : OneIn(2000)) Timer().ToggleTimer();
            check_.MayRise(!Timer().IsRunning && !Timer().IsDone);
            if (!Timer().IsRunning && !Timer().IsDone)
                StartFrom(Timer().CurrentSeconds > 0 ? Timer().CurrentSeconds : 3600);
            check_.TickComes();
            TickAfter(OneIn(20'000) ? static_cast<double>(random_() % 7200) : 0.25);
            check_.Run();
            if (OneIn(100)) QCoreApplication::processEvents();  // the clock is painted
        }
    }

  private:
    bool OneIn(unsigned number) { return random_() % number == 0; }

    std::mt19937 random_{1};
    StateCheck check_{host};
};

TEST_F(SoakTest, ADayLeavesNothingBehind) {
    RunUntil(6 * kHour);  // by then everything has been drawn once, and what is kept for good is there
    const std::size_t bytesInUse = mallinfo2().uordblks;
    RunUntil(24 * kHour);
    EXPECT_LT(mallinfo2().uordblks, bytesInUse + 4096);
}

}  // namespace
