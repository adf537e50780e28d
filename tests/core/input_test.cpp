#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <functional>

#include "platform/Canvas.h"
#include "platform/Text.h"
#include "tests/support/TimerWindowTest.h"

namespace {

class InputTest : public TimerWindowTest {
  protected:
    InputTest() { Timer().CurrentSeconds = 100; }

    static bool Toggles(const std::function<void()>& input) {
        const bool before = Timer().IsRunning;
        input();
        return Timer().IsRunning != before;
    }

    static Qt::CursorShape CursorAt(Int32 x, Int32 y) {
        Timer().cvTime_MouseMove(x, y);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (const auto* canvas = window->findChild<QWidget*>("cvTime")) return canvas->cursor().shape();
        }
        return Qt::BlankCursor;
    }
};

TEST_F(InputTest, TheStatusIconIsASquareWithItsEdges) {
    struct Row {
        Int32 x, y;
        bool isInside;
    };
    for (const Row& row :
         {Row{10, 10, true}, Row{26, 26, true}, Row{10, 26, true}, Row{18, 18, true}, Row{9, 10, false},
          Row{27, 10, false}, Row{10, 9, false}, Row{10, 27, false}, Row{220, 114, false}}) {
        EXPECT_EQ(Toggles([&] { EXPECT_FALSE(Timer().cvTime_MouseDown(row.x, row.y)); }), row.isInside)
            << row.x << ", " << row.y;
        EXPECT_EQ(CursorAt(row.x, row.y), row.isInside ? Qt::PointingHandCursor : Qt::ArrowCursor);
    }
}

TEST_F(InputTest, ThreeKeysAreTheTimersCommand) {
    for (const Int32 code : {13, 3, 32}) {
        EXPECT_TRUE(Toggles([&] { EXPECT_TRUE(Timer().Event_KeyDown(Chr(code))); })) << code;
    }
    for (const char* key : {"a", "\x1b", "\t", "1", "é", ""}) {
        EXPECT_FALSE(Toggles([&] { EXPECT_FALSE(Timer().Event_KeyDown(key)); })) << key;
    }
}

TEST_F(InputTest, EachInputDismissesTheAlertAndDoesNotStartAnew) {
    const std::function<void()> inputs[] = {[] { Timer().Event_KeyDown(Chr(13)); },
                                            [] { Timer().cvTime_MouseDown(18, 18); },
                                            [] { Timer()._TimerStart_Action(); }};
    for (const auto& input : inputs) {
        Timer().IsDone = true;
        Timer().CurrentSeconds = 0;
        input();
        EXPECT_FALSE(Timer().IsDone);
        EXPECT_FALSE(Timer().IsRunning);
    }
}

TEST_F(InputTest, MovesCallTheMenuBarInFullscreenAlone) {
    Timer().Event_MouseMove(5, 400);
    EXPECT_TRUE(Timer().MenuBarVisible());
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_FALSE(Timer().MenuBarVisible());
    Timer().Event_MouseMove(5, 10);
    EXPECT_TRUE(Timer().MenuBarVisible());
    Timer().Event_MouseMove(5, 11);
    EXPECT_FALSE(Timer().MenuBarVisible());
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_TRUE(Timer().MenuBarVisible());
}

TEST_F(InputTest, FullscreenGivesTheFrameBackAndLeavesTheCountAlone) {
    Timer().Left(37);
    Timer().Top(91);
    Timer().Width(500);
    Timer().Height(300);
    StartFrom(100);
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_TRUE(Timer().FullScreen());
    Timer().ToggleFullscreen(true);
    EXPECT_TRUE(Timer().FullScreen());
    Timer()._ViewToggleFullscreen_Action();
    EXPECT_FALSE(Timer().FullScreen());
    EXPECT_EQ(Timer().Left(), 37);
    EXPECT_EQ(Timer().Top(), 91);
    EXPECT_EQ(Timer().Width(), 500);
    EXPECT_EQ(Timer().Height(), 300);
    EXPECT_TRUE(Timer().IsRunning);
    EXPECT_EQ(Timer().CurrentSeconds, 100);
}

}  // namespace
