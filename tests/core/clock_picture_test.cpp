#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "platform/qt/PainterGraphics.h"
#include "platform/qt/Pixels.h"
#include "tests/support/TimerWindowTest.h"

// How the picture looks: what colour must be at which angle and radius, at several sizes and scale factors.

namespace {

const Color kBackground = RGB(0x20, 0x40, 0x60), kFace = RGB(0xFF, 0xF0, 0xE0), kWedge = RGB(0xE0, 0x10, 0x90),
            kFrame = RGB(0x10, 0x70, 0x30);

struct Surface {
    Int32 width, height;
    double ratio;
};
void PrintTo(const Surface& surface, std::ostream* out) {
    *out << surface.width << " x " << surface.height << " at " << surface.ratio;
}

class ClockPictureTest : public TimerWindowTest, public testing::WithParamInterface<Surface> {
  protected:
    ClockPictureTest() {
        Timer().Color_Window_Background = kBackground;
        Timer().Color_Clock_Face = kFace;
        Timer().Color_Clock_Wedge = kWedge;
        Timer().Color_Clock_Frame = kFrame;
    }

    void Draw(Int32 seconds, bool showTimeUp = false) {
        Timer().Redraw(MakeRef<PainterGraphics>(pixels_.View(), pixels_.LogicalSize()), seconds, 0.95, true,
                       showTimeUp);
    }

    double Radius() const { return std::min(surface.width, surface.height) * 0.95 * 0.97 / 2; }
    bool IsTiny() const { return Radius() < 20; }

    /// The point at an angle in minutes of the face, clockwise from 12 o'clock, and a radius of 1 at the ring's middle.
    /// The centre's half pixel is dropped.
    QPointF Point(double minute, double radius) const {
        const double angle = (minute / 60 - 0.25) * 2 * std::numbers::pi;
        return QPointF(surface.width / 2, surface.height / 2) +
               QPointF(std::cos(angle), std::sin(angle)) * radius * Radius();
    }

    /// Which of the four colours a point shows, its edges' smoothing set aside.
    Color At(QPointF point) const {
        const auto x = static_cast<std::size_t>(point.x() * surface.ratio);
        const auto y = static_cast<std::size_t>(point.y() * surface.ratio);
        const QRgb seen = pixels_.Bits()[y * row_ + x];
        const auto distance = [seen](Color c) {
            return std::abs(qRed(seen) - c.Red()) + std::abs(qGreen(seen) - c.Green()) +
                   std::abs(qBlue(seen) - c.Blue());
        };
        return std::min({kBackground, kFace, kWedge, kFrame},
                        [&](Color a, Color b) { return distance(a) < distance(b); });
    }
    Color At(double minute, double radius) const { return At(Point(minute, radius)); }

    /// Whether the frame's colour shows there or up to a pixel before: marks begin at whole pixels, fractions dropped.
    bool HasMark(double minute, double radius) const {
        for (const double left : {0.0, 0.5, 1.0}) {
            for (const double up : {0.0, 0.5, 1.0}) {
                if (At(Point(minute, radius) - QPointF(left, up)) == kFrame) return true;
            }
        }
        return false;
    }

    static QRgb Opaque(Color color) { return qRgb(color.Red(), color.Green(), color.Blue()); }
    auto Count(Color color) const { return std::count(pixels_.Bits().begin(), pixels_.Bits().end(), Opaque(color)); }

    const Surface surface = GetParam();
    Picture::Pixels pixels_{QSize(surface.width, surface.height), surface.ratio};
    const std::size_t row_ = static_cast<std::size_t>(pixels_.View().width());
};

TEST_P(ClockPictureTest, FaceAndWedgeMeetAtTheTimeAndAtTwelve) {
    for (const auto& [seconds, minutes] : {std::pair(900, 15.0), {1500, 25.0}, {3599, 59.99}, {3630, 60.0}}) {
        SCOPED_TRACE(seconds);
        Draw(seconds);
        for (double minute = 0.5; minute < 60; ++minute)  // between the marks
            EXPECT_EQ(At(minute, 0.7), minute > 60 - minutes ? kWedge : kFace) << minute;
    }
}

TEST_P(ClockPictureTest, ASecondIsASliver) {
    Draw(1);
    const auto faceWithSliver = Count(kFace);
    Draw(0);
    EXPECT_EQ(Count(kWedge), 0);
    EXPECT_GT(Count(kFace), faceWithSliver);
}

TEST_P(ClockPictureTest, RingAndMarksLieOverTheWedgeAndTheBackgroundReachesEachCorner) {
    Draw(3600);
    EXPECT_EQ(Count(kFace), 0);
    const auto bits = pixels_.Bits();
    for (const QRgb corner : {bits.front(), bits[row_ - 1], bits[bits.size() - row_], bits.back()})
        EXPECT_EQ(corner, Opaque(kBackground));
    if (IsTiny()) return;  // lines of a pixel and less have no colour of their own
    for (int minute = 0; minute < 60; ++minute) {
        SCOPED_TRACE(minute);
        EXPECT_TRUE(HasMark(minute + 0.5, 1.0));
        EXPECT_EQ(At(minute + 0.5, 1.03 + 1.5 / Radius()), kBackground);
        EXPECT_TRUE(HasMark(minute, 0.94));
        EXPECT_EQ(HasMark(minute, 0.85), minute % 5 == 0);
        EXPECT_FALSE(HasMark(minute, 0.75));
    }
}

TEST_P(ClockPictureTest, TheAlertTextIsCentredWithinTheFace) {
    Draw(0);
    const std::vector<QRgb> without(pixels_.Bits().begin(), pixels_.Bits().end());
    Draw(0, true);
    QRect changed;
    for (std::size_t i = 0; i < without.size(); ++i) {
        if (pixels_.Bits()[i] != without[i])
            changed |= QRect(static_cast<int>(i % row_), static_cast<int>(i / row_), 1, 1);
    }
    EXPECT_NEAR(changed.center().x() / surface.ratio, surface.width / 2.0, 0.02 * Radius() + 2);
    EXPECT_NEAR(changed.center().y() / surface.ratio, surface.height / 2.0, 0.1 * Radius() + 2);
    // The smallest text is 8 pixels high and too wide for a tiny clock.
    if (IsTiny()) return;
    EXPECT_NEAR(changed.width() / surface.ratio, 1.6 * Radius(), 0.12 * Radius() + 2);
}

constexpr Surface kSurfaces[] = {
    {441, 229, 1}, {441, 229, 1.5}, {441, 229, 2}, {400, 150, 1},   {400, 150, 1.5},   {400, 150, 2},
    {33, 33, 1},   {33, 33, 1.5},   {33, 33, 2},   {1920, 1080, 1}, {1920, 1080, 1.5}, {1920, 1080, 2},
};
INSTANTIATE_TEST_SUITE_P(Sizes, ClockPictureTest, testing::ValuesIn(kSurfaces));

}  // namespace
