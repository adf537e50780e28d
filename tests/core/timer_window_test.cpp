#include <QtGui/QAccessible>
#include <QtWidgets/QMenuBar>

#include "platform/Text.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

class TimerTest : public TimerWindowTest {
  protected:
    TimerTest() {
        host.microseconds = 5'000'000.75;
        Timer();
        host.calls.clear();
    }

    static QWidget& Clock() { return WidgetNamed("cvTime"); }
    static QAccessibleInterface& Accessible() { return *QAccessible::queryAccessibleInterface(&Clock()); }

    void ExpectState(bool isRunning, bool isDone, const std::string& words) {
        EXPECT_EQ(Timer().IsRunning, isRunning);
        EXPECT_EQ(Timer().IsDone, isDone);
        EXPECT_EQ(Accessible().text(QAccessible::Description).toStdString(), words);
        EXPECT_EQ(host.announcement, words);
    }
    /// Whether an act starts or stops the count.
    template <class Act>
    static bool Toggles(const Act& act) {
        const bool wasRunning = Timer().IsRunning;
        act();
        return Timer().IsRunning != wasRunning;
    }
};

TEST_F(TimerTest, GoesThroughItsStatesAndHoldsOffTheScreenSaverDuringTheRunAlone) {
    StartFrom(62);
    ExpectState(true, false, "Running, 1 minute 2 seconds left");
    TickAfter(61);
    Timer().ToggleTimer();
    ExpectState(false, false, "Stopped, 1 second left");
    TickAfter(100);
    Accessible().actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    ExpectState(true, false, "Running, 1 second left");
    TickAfter(1);
    ExpectState(false, true, "Time is Up!");
    EXPECT_THAT(host.calls, ElementsAre("InhibitScreenSaver", "DelayScreenSaver", "ReleaseScreenSaver",
                                        "InhibitScreenSaver", "DelayScreenSaver", "ReleaseScreenSaver"));
    host.calls.clear();
    ASSERT_TRUE(Eventually([this] { return !host.calls.empty(); }));
    for (int i = 0; i < 2; ++i) {  // once more doesn't start an empty one
        Timer().ToggleTimer();
        ExpectState(false, false, "Stopped, no time left");
    }
    EXPECT_THAT(host.calls, ElementsAre("Beep"));
}

TEST_F(TimerTest, DropsFractionsAndShowsTheTrueTimeAtALateTick) {
    StartFrom(10);
    TickAfter(0.9999);
    EXPECT_EQ(Timer().CurrentSeconds, 10);
    host.microseconds += 99.25;  // 999,999.25 after a start that was cut to the whole microsecond below
    EXPECT_TRUE(Eventually([] { return Timer().CurrentSeconds == 9; })) << "it ticks by itself";
    TickAfter(1e9);  // a machine that slept
    EXPECT_TRUE(Timer().IsDone && Timer().CurrentSeconds == 0);
}

TEST_F(TimerTest, KeysAndClicksOnTheIconAreTheTimersCommand) {
    Timer().CurrentSeconds = 60;
    for (const auto& [code, isCommand] : {std::pair(13, true), {3, true}, {32, true}, {27, false}, {'r', false}})
        EXPECT_EQ(Toggles([&] { EXPECT_EQ(Timer().Event_KeyDown(Chr(code)), isCommand); }), isCommand) << code;
    for (const auto& [x, y, isIcon] :
         {std::tuple(10, 10, true), {26, 26, true}, {9, 26, false}, {10, 9, false}, {27, 26, false}, {26, 27, false}}) {
        SCOPED_TRACE(testing::Message() << x << ", " << y);
        Mouse(QEvent::MouseMove, Clock(), QPoint(x, y), Qt::NoButton);
        EXPECT_EQ(Clock().cursor().shape(), isIcon ? Qt::PointingHandCursor : Qt::ArrowCursor);
        EXPECT_EQ(Toggles([&] { Mouse(QEvent::MouseButtonPress, Clock(), QPoint(x, y)); }), isIcon);
    }
}

TEST_F(TimerTest, FullscreenShowsTheMenuBarAtTheTopAndGivesTheFrameBack) {
    const auto frame = [] { return QRect(Timer().Left(), Timer().Top(), Timer().Width(), Timer().Height()); };
    QWidget& window = *Clock().window();
    QMenuBar& bar = *window.findChild<QMenuBar*>();
    const auto hasBarAt = [&bar](Int32 y) {
        Timer().Event_MouseMove(0, y);
        return bar.isVisible();
    };
    window.showMaximized();
    ASSERT_TRUE(Eventually([&] { return window.width() > 700; }));
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_TRUE(window.isMaximized()) << "KWin would ignore a request for it while the window is fullscreen still";
    ASSERT_TRUE(Eventually([&] { return window.size() == window.screen()->size(); }));
    Timer().ToggleFullscreen(true);
    window.setWindowState(Qt::WindowNoState);
    EXPECT_TRUE(!Timer().FullScreen() && window.isMaximized()) << "the window manager has ended it";
    window.showNormal();
    Timer().Left(40);
    Timer().Top(60);
    Timer().Width(500);
    Timer().Height(300);
    const QRect before = frame();
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_TRUE(Timer().FullScreen() && !bar.isVisible());
    EXPECT_EQ(Clock().size(), window.size());
    EXPECT_TRUE(hasBarAt(10));
    EXPECT_FALSE(hasBarAt(11));
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_FALSE(Timer().FullScreen());
    EXPECT_EQ(frame(), before);
    EXPECT_EQ(Clock().size(), QSize(500, 300));
    Timer()._ViewToggleFullscreen_Action();
    window.setWindowState(Qt::WindowNoState);
    EXPECT_TRUE(window.isFullScreen()) << "asked for again: that was the answer to something before";
}

}  // namespace
