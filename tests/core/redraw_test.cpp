#include <gmock/gmock.h>

#include <cmath>

#include "platform/Canvas.h"
#include "shell/images.h"
#include "tests/support/RecordingGraphics.h"
#include "tests/support/TimerWindowTest.h"

// What Redraw asks of a surface, in exact numbers; how it looks is the matter of clock_picture_test.

namespace {

using testing::ElementsAre;

class RedrawTest : public TimerWindowTest {
  protected:
    static std::shared_ptr<RecordingGraphics> Drawn(Int32 width, Int32 height, Int32 seconds, double scale = 0.95,
                                                    bool hideIcon = false, bool showTimeUp = false) {
        auto graphics = std::make_shared<RecordingGraphics>(width, height);
        Timer().Redraw(Ref<Graphics>(graphics), seconds, scale, hideIcon, showTimeUp);
        return graphics;
    }
    static Ref<Picture> IconDrawn() { return Drawn(441, 229, -1)->pictures.at(0); }
};

TEST_F(RedrawTest, DrawsLayerUponLayer) {
    EXPECT_THAT(Drawn(441, 229, 900)->order, ElementsAre("all", "disc", "wedge", "ring", "marks", "icon"));
    EXPECT_THAT(Drawn(441, 229, 0)->order, ElementsAre("all", "disc", "ring", "marks", "icon"));
    EXPECT_THAT(Drawn(441, 229, 5, 0.9, true, true)->order,
                ElementsAre("all", "disc", "wedge", "ring", "marks", "text"));
    Timer().IsDone = true;
    EXPECT_THAT(Drawn(441, 229, -1)->order, ElementsAre("all", "disc", "ring", "marks", "icon", "text"));
    EXPECT_THAT(Drawn(441, 229, -1, 0.9, true)->order, ElementsAre("all", "disc", "ring", "marks", "text"));
}

TEST_F(RedrawTest, ChoosesTimeAndIconByState) {
    EXPECT_EQ(IconDrawn(), Pause_Icon());
    Timer().CurrentSeconds = 1200;
    EXPECT_TRUE(Drawn(441, 229, 0)->arcs.empty());
    Timer().ToggleTimer();
    EXPECT_EQ(IconDrawn(), Run_Icon());
    EXPECT_DOUBLE_EQ(Drawn(441, 229, -1)->arcs.at(0).shape.ArcAngle(), 6.283058 * 1200 / 3600);
    TickAfter(1200);
    EXPECT_EQ(IconDrawn(), Alert_Icon());
    EXPECT_NE(Run_Icon(), Pause_Icon());
}

TEST_F(RedrawTest, SizesFollowTheShorterSide) {
    struct Row {
        Int32 width, height;
        double diameter, ring, longLength, longWidth, shortLength, shortWidth;
        Int32 x, y;
    };
    const Row rows[] = {
        {441, 229, 211.0235, 6.330705, 21.10235, 4.22047, 10.551175, 2.110235, 220, 114},
        {400, 150, 138.225, 4.14675, 13.8225, 2.7645, 6.91125, 1.38225, 200, 75},
        {1920, 1080, 995.22, 29.8566, 99.522, 19.9044, 49.761, 9.9522, 960, 540},
        {33, 33, 30.4095, 1.0, 3.04095, 0.60819, 1.520475, 0.304095, 16, 16},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.width);
        const auto drawn = Drawn(row.width, row.height, 1800);
        const auto& [disc, ring] = std::tie(drawn->ovals.at(0), drawn->ovals.at(1));
        for (const auto* shape :
             {static_cast<const RectShape*>(&disc.shape), static_cast<const RectShape*>(&ring.shape),
              static_cast<const RectShape*>(&drawn->arcs.at(0).shape)}) {
            EXPECT_DOUBLE_EQ(shape->Width(), row.diameter);
            EXPECT_DOUBLE_EQ(shape->Height(), row.diameter);
        }
        EXPECT_DOUBLE_EQ(ring.shape.BorderWidth(), row.ring);
        EXPECT_EQ(ring.shape.Fill(), 0);
        EXPECT_EQ(disc.x, row.x);
        EXPECT_EQ(ring.y, row.y);
        EXPECT_DOUBLE_EQ(drawn->lines.at(0).shape.X2(), row.longLength);
        EXPECT_DOUBLE_EQ(drawn->lines.at(0).shape.BorderWidth(), row.longWidth);
        EXPECT_DOUBLE_EQ(drawn->lines.at(1).shape.X2(), row.shortLength);
        EXPECT_DOUBLE_EQ(drawn->lines.at(1).shape.BorderWidth(), row.shortWidth);
    }
}

TEST_F(RedrawTest, AWedgeEndsAtTheTopAndReachesBackFromThere) {
    struct Row {
        Int32 seconds;
        double sweep, start;
    };
    const Row rows[] = {{1, 0.0017452939, 4.7105482},
                        {900, 1.5707645, 3.141529},
                        {3600, 6.283058, -1.5707645},
                        {3630, 6.33541681, -1.62312331}};
    for (const Row& row : rows) {
        const auto wedge = Drawn(441, 229, row.seconds)->arcs.at(0).shape;
        EXPECT_NEAR(wedge.ArcAngle(), row.sweep, 1e-7);
        EXPECT_NEAR(wedge.StartAngle(), row.start, 1e-7);
    }
}

TEST_F(RedrawTest, SixtyMarksRunInwardsFromTheRing) {
    const auto drawn = Drawn(441, 229, 0);
    ASSERT_EQ(drawn->lines.size(), 60U);
    for (int i = 0; i < 60; ++i) {
        const auto& mark = drawn->lines.at(static_cast<std::size_t>(i));
        const double angle = i * 6.283058 / 60;
        const double inner = 211.0235 / 2 - (i % 5 == 0 ? 21.10235 : 10.551175);
        EXPECT_DOUBLE_EQ(mark.shape.Rotation(), angle);
        EXPECT_EQ(mark.x, static_cast<int>(220.5 + std::cos(angle) * inner)) << i;
        EXPECT_EQ(mark.y, static_cast<int>(114.5 + std::sin(angle) * inner)) << i;
    }
}

TEST_F(RedrawTest, ColoursGoToTheirRoles) {
    Timer().Color_Window_Background = RGB(1, 2, 3);
    Timer().Color_Clock_Face = RGB(4, 5, 6);
    Timer().Color_Clock_Wedge = RGB(7, 8, 9);
    Timer().Color_Clock_Frame = RGB(10, 11, 12);
    const auto drawn = Drawn(200, 100, 60, 0.95, true, true);
    EXPECT_EQ(drawn->background, RGB(1, 2, 3));
    EXPECT_EQ(drawn->ovals.at(0).shape.FillColor(), RGB(4, 5, 6));
    EXPECT_EQ(drawn->arcs.at(0).shape.FillColor(), RGB(7, 8, 9));
    EXPECT_EQ(drawn->ovals.at(1).shape.BorderColor(), RGB(10, 11, 12));
    EXPECT_EQ(drawn->lines.at(59).shape.BorderColor(), RGB(10, 11, 12));
    EXPECT_EQ(drawn->texts.at(0).color, RGB(10, 11, 12));
}

TEST_F(RedrawTest, TheAlertTextIsFittedAndCentred) {
    const auto drawn = Drawn(441, 229, 0, 0.95, true, true);
    const auto& text = drawn->texts.at(0);
    EXPECT_EQ(text.text, "Time is Up!");
    EXPECT_EQ(text.size, 28);  // 168 pixels wide at 6 per point
    EXPECT_EQ(text.x, (441 - 168) / 2);
    EXPECT_EQ(text.y, static_cast<int>((229 - 56) / 2.0 + 28));
}

TEST_F(RedrawTest, TextSizeSettlesAsTheSearchDoes) {
    RecordingGraphics sixPerPoint(100, 100, 6);
    EXPECT_EQ(Timer().GetTextSize(sixPerPoint, "text", 100), 17);
    EXPECT_EQ(Timer().GetTextSize(sixPerPoint, "text", 300), 49);
    EXPECT_EQ(Timer().GetTextSize(sixPerPoint, "text", 47), 8);  // too wide at 8 already
    EXPECT_EQ(sixPerPoint.TextSize(), 8);
    EXPECT_EQ(Timer().GetTextSize(sixPerPoint, "text", 48), 8 + 1);  // a width equal to the limit fits
}

TEST_F(RedrawTest, WithoutASurfaceItDrawsOnTheWindowsCanvas) {
    Timer().CurrentSeconds = 1800;
    Timer().Redraw(nullptr, -1, 0.95, false, false);
    EXPECT_EQ(Timer().Find<Canvas>("cvTime").Graphics()->Width(), 441);
}

}  // namespace
