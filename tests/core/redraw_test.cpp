#include <gmock/gmock.h>

#include <cmath>
#include <tuple>

#include "shell/images.h"
#include "tests/support/RecordingGraphics.h"
#include "tests/support/TimerWindowTest.h"

// What Redraw asks of a surface, in exact numbers; how it looks is the matter of clock_picture_test.

namespace {

using testing::ElementsAre;

class RedrawTest : public TimerWindowTest {
  protected:
    static std::shared_ptr<RecordingGraphics> Drawn(Int32 seconds, bool hideIcon = false, bool showTimeUp = false,
                                                    Int32 width = 441, Int32 height = 229) {
        auto graphics = std::make_shared<RecordingGraphics>(width, height);
        Timer().Redraw(Ref<Graphics>(graphics), seconds, 0.95, hideIcon, showTimeUp);
        return graphics;
    }
};

TEST_F(RedrawTest, DrawsLayerUponLayer) {
    EXPECT_THAT(Drawn(900)->order, ElementsAre("all", "disc", "wedge", "ring", "marks", "icon"));
    EXPECT_THAT(Drawn(5, true, true)->order, ElementsAre("all", "disc", "wedge", "ring", "marks", "text"));
    Timer().IsDone = true;
    EXPECT_THAT(Drawn(-1)->order, ElementsAre("all", "disc", "ring", "marks", "icon", "text"));
}

TEST_F(RedrawTest, ChoosesTimeAndIconByState) {
    EXPECT_EQ(Drawn(-1)->pictures.at(0), Pause_Icon());
    StartFrom(1200);
    EXPECT_EQ(Drawn(-1)->pictures.at(0), Run_Icon());
    EXPECT_DOUBLE_EQ(Drawn(-1)->arcs.at(0).shape.ArcAngle(), 6.283058 * 1200 / 3600);
    EXPECT_TRUE(Drawn(0)->arcs.empty());
    TickAfter(1200);
    EXPECT_EQ(Drawn(-1)->pictures.at(0), Alert_Icon());
}

TEST_F(RedrawTest, SizesFollowTheShorterSide) {
    struct Row {
        Int32 width, height;
        double diameter, ring, longLength, longWidth;  // a short mark has half of both
        Int32 x, y;
    };
    for (const Row& row : {Row{441, 229, 211.0235, 6.330705, 21.10235, 4.22047, 220, 114},
                           Row{1080, 1920, 995.22, 29.8566, 99.522, 19.9044, 540, 960},
                           Row{33, 33, 30.4095, 1.0, 3.04095, 0.60819, 16, 16}}) {
        SCOPED_TRACE(row.width);
        const auto drawn = Drawn(1800, false, false, row.width, row.height);
        const auto &disc = drawn->ovals.at(0), &ring = drawn->ovals.at(1);
        const auto& wedge = drawn->arcs.at(0);
        for (const auto& [x, y, shape] : {std::tuple<Int32, Int32, const RectShape*>(disc.x, disc.y, &disc.shape),
                                          {ring.x, ring.y, &ring.shape},
                                          {wedge.x, wedge.y, &wedge.shape}}) {
            EXPECT_EQ(std::pair(x, y), std::pair(row.x, row.y));
            EXPECT_DOUBLE_EQ(shape->Width(), row.diameter);
            EXPECT_DOUBLE_EQ(shape->Height(), row.diameter);
        }
        EXPECT_DOUBLE_EQ(ring.shape.BorderWidth(), row.ring);
        EXPECT_EQ(ring.shape.Fill(), 0);
        ASSERT_EQ(drawn->lines.size(), 60U);
        for (int i = 0; i < 60; ++i) {
            SCOPED_TRACE(i);
            const auto& mark = drawn->lines.at(static_cast<std::size_t>(i));
            const double share = i % 5 == 0 ? 1 : 0.5, angle = i * 6.283058 / 60;
            const double inner = row.diameter / 2 - share * row.longLength;
            EXPECT_DOUBLE_EQ(mark.shape.X2(), share * row.longLength);
            EXPECT_DOUBLE_EQ(mark.shape.BorderWidth(), share * row.longWidth);
            EXPECT_DOUBLE_EQ(mark.shape.Rotation(), angle);
            EXPECT_EQ(mark.x, static_cast<int>(row.width / 2.0 + std::cos(angle) * inner));
            EXPECT_EQ(mark.y, static_cast<int>(row.height / 2.0 + std::sin(angle) * inner));
        }
    }
}

TEST_F(RedrawTest, AWedgeEndsAtTheTopAndReachesBackFromThere) {
    for (const auto& [seconds, sweep, start] :
         {std::tuple(1, 0.0017452939, 4.7105482), {900, 1.5707645, 3.141529}, {3630, 6.33541681, -1.62312331}}) {
        const auto wedge = Drawn(seconds)->arcs.at(0).shape;
        EXPECT_NEAR(wedge.ArcAngle(), sweep, 1e-7);
        EXPECT_NEAR(wedge.StartAngle(), start, 1e-7);
    }
}

TEST_F(RedrawTest, TheAlertTextIsFittedAndCentred) {
    const auto text = Drawn(0, true, true)->texts.at(0);
    EXPECT_EQ(text.text, "Time is Up!");
    EXPECT_EQ(text.size, 28);  // 168 pixels wide
    EXPECT_EQ(text.x, (441 - 168) / 2);
    EXPECT_EQ(text.y, static_cast<int>((229 - 56) / 2.0 + 28));
}

TEST_F(RedrawTest, TextSizeSettlesAsTheSearchDoes) {
    RecordingGraphics graphics(100, 100);
    // Too wide at 8 already; a width equal to the limit fits.
    for (const auto& [limit, size] : {std::pair(47, 8), {48, 9}, {100, 17}, {300, 49}})
        EXPECT_EQ(Timer().GetTextSize(graphics, "text", limit), size) << limit;
}

}  // namespace
