#include <gmock/gmock.h>
#include <malloc.h>

#include <QtWidgets/QMenuBar>
#include <string>

#include "platform/Canvas.h"
#include "platform/Text.h"
#include "platform/Timer.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TimerTest : public TimerWindowTest {
  protected:
    TimerTest() {
        host.microseconds = 5'000'000.75;
        Timer();
        host.calls.clear();
    }

    static void ExpectState(bool isRunning, bool isDone, Int32 seconds, const std::string& words) {
        EXPECT_EQ(Timer().IsRunning, isRunning);
        EXPECT_EQ(Timer().IsDone, isDone);
        EXPECT_EQ(Timer().CurrentSeconds, seconds);
        EXPECT_EQ(Timer().InWords(), words);
        EXPECT_EQ(Named("TimerDone").Mode(), isDone ? Timer::Modes::Repeat : Timer::Modes::Off);
        EXPECT_EQ(Named("TimerRun").Mode(), Timer::Modes::Repeat);
    }
    static ::Timer& Named(const char* name) { return Timer().Find<::Timer>(name); }
    static QWidget& Clock() { return WidgetNamed("cvTime"); }

    /// Whether an act starts or stops the count.
    template <class Act>
    static bool Toggles(const Act& act) {
        const bool wasRunning = Timer().IsRunning;
        act();
        return Timer().IsRunning != wasRunning;
    }
};

TEST_F(TimerTest, BeginsEmptyAndThenRefusesToStart) {
    EXPECT_EQ(Named("TimerRun").Period(), 250);
    EXPECT_EQ(Named("TimerDone").Period(), 1000);
    Timer().ToggleTimer();
    TickAfter(2);
    ExpectState(false, false, 0, "Stopped, no time left");
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(TimerTest, GoesThroughItsStatesAndHoldsOffTheScreenSaverDuringTheRunAlone) {
    StartFrom(62);
    ExpectState(true, false, 62, "Running, 1 minute 2 seconds left");
    TickAfter(61);
    ExpectState(true, false, 1, "Running, 1 second left");
    Timer().ToggleTimer();
    TickAfter(100);
    ExpectState(false, false, 1, "Stopped, 1 second left");
    Timer().ToggleTimer();
    TickAfter(1);
    ExpectState(false, true, 0, "Time is Up!");
    TickAfter(0.25);
    Timer().TimerDone_Action();
    Timer().TimerDone_Action();
    Timer().ToggleTimer();
    ExpectState(false, false, 0, "Stopped, no time left");
    Timer().ToggleTimer();
    ExpectState(false, false, 0, "Stopped, no time left");
    EXPECT_THAT(host.calls,
                ElementsAre("InhibitScreenSaver", "DelayScreenSaver", "ReleaseScreenSaver", "InhibitScreenSaver",
                            "DelayScreenSaver", "ReleaseScreenSaver", "Beep", "Beep"));
}

TEST_F(TimerTest, DropsFractionsAndShowsTheTrueTimeAtALateTick) {
    StartFrom(10);
    TickAfter(0.9999);
    EXPECT_EQ(Timer().CurrentSeconds, 10);
    TickAfter(0.000'099'25);  // 999,999.25 microseconds after a start that was cut to the whole microsecond below
    EXPECT_EQ(Timer().CurrentSeconds, 9);
    TickAfter(1e9);  // a machine that slept
    ExpectState(false, true, 0, "Time is Up!");
}

TEST_F(TimerTest, EachChangeIsPainted) {
    Named("TimerRun").Period(1'000'000);  // no tick but those that come here
    int paints = 0;
    Timer().Find<Canvas>("cvTime").Paint = [&paints](const Ref<Graphics>&) { ++paints; };
    const std::function<void()> changes[] = {
        [] { StartFrom(120); }, [this] { TickAfter(1); },  [] { Timer().Stop(); },         [this] { TickAfter(1); },
        [] { Timer().Done(); }, [] { Timer().Dismiss(); }, [] { Timer().Event_Resized(); }};
    for (const auto& change : changes) {
        QCoreApplication::processEvents();
        paints = 0;
        change();
        QCoreApplication::processEvents();
        EXPECT_GT(paints, 0) << &change - changes;
    }
}

TEST_F(TimerTest, KeysAndClicksOnTheIconAreTheTimersCommand) {
    Timer().CurrentSeconds = 60;
    for (const auto& [code, isCommand] : {std::pair(13, true), {3, true}, {32, true}, {27, false}, {'r', false}})
        EXPECT_EQ(Toggles([&] { EXPECT_EQ(Timer().Event_KeyDown(Chr(code)), isCommand); }), isCommand) << code;
    const QPoint inside[] = {{10, 10}, {26, 26}}, outside[] = {{9, 26}, {10, 9}, {27, 26}, {26, 27}};
    const auto expectCommand = [&](const QPoint& at, bool isIcon) {
        SCOPED_TRACE(testing::Message() << at.x() << ", " << at.y());
        Mouse(QEvent::MouseMove, Clock(), at, Qt::NoButton);
        EXPECT_EQ(Clock().cursor().shape(), isIcon ? Qt::PointingHandCursor : Qt::ArrowCursor);
        EXPECT_EQ(Toggles([&] { Mouse(QEvent::MouseButtonPress, Clock(), at); }), isIcon);
    };
    for (const QPoint& at : inside)
        expectCommand(at, true);
    for (const QPoint& at : outside)
        expectCommand(at, false);
}

TEST_F(TimerTest, FullscreenShowsTheMenuBarAtTheTopAndGivesTheFrameBack) {
    const auto frame = [] { return QRect(Timer().Left(), Timer().Top(), Timer().Width(), Timer().Height()); };
    QMenuBar& bar = *Clock().window()->findChild<QMenuBar*>();
    const auto hasBarAt = [&bar](Int32 y) { return Timer().Event_MouseMove(0, y), bar.isVisible(); };
    EXPECT_EQ(frame().size(), QSize(441, 229));
    EXPECT_TRUE(hasBarAt(11));
    Timer().Left(40);
    Timer().Top(60);
    Timer().Width(500);
    Timer().Height(300);
    const QRect before = frame();
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_TRUE(Timer().FullScreen() && !bar.isVisible());
    EXPECT_EQ(Clock().size(), Clock().window()->size());
    EXPECT_TRUE(hasBarAt(10));
    EXPECT_FALSE(hasBarAt(11));
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_FALSE(Timer().FullScreen());
    EXPECT_EQ(frame(), before);
    EXPECT_EQ(Clock().size(), QSize(500, 300));
    EXPECT_TRUE(bar.isVisible());
}

TEST_F(TimerTest, AnHourOfTicksLeavesNothingBehind) {
    for (const char* timer : {"TimerRun", "TimerDone"})
        Named(timer).Period(1'000'000);
    const auto bytesAfterAnHour = [this] {
        StartFrom(3600);
        for (int tick = 1; !Timer().IsDone; ++tick) {
            TickAfter(0.25);
            if (tick % 100 == 0) QCoreApplication::processEvents();  // the clock is painted
        }
        Timer().ToggleTimer();
        host.calls.clear();
        return mallinfo2().uordblks;
    };
    bytesAfterAnHour();  // by then everything has been drawn once, and what is kept for good is there
    const auto before = bytesAfterAnHour();
    EXPECT_LT(bytesAfterAnHour(), before + 32'768) << "14,400 ticks";
}

}  // namespace
