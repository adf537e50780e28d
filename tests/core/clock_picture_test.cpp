#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "platform/qt/drawing/GraphicsPeer.h"
#include "platform/qt/drawing/Pixels.h"
#include "shell/resources.h"
#include "tests/support/TimerWindowTest.h"

// How the picture looks: what colour must be at which angle and radius, at several sizes and scale factors.

namespace {

const Color kBackground = RGB(0x20, 0x40, 0x60), kFace = RGB(0xFF, 0xF0, 0xE0), kWedge = RGB(0xE0, 0x10, 0x90),
            kFrame = RGB(0x10, 0x70, 0x30);

struct Surface {
    Int32 width, height;
    double ratio;
};

class ClockPictureTest : public TimerWindowTest, public testing::WithParamInterface<Surface> {
  protected:
    ClockPictureTest() {
        Timer().Color_Window_Background = kBackground;
        Timer().Color_Clock_Face = kFace;
        Timer().Color_Clock_Wedge = kWedge;
        Timer().Color_Clock_Frame = kFrame;
    }

    Ref<Graphics> OnSurface() {
        return MakeRef<Graphics>(std::make_unique<Graphics::Peer>(pixels_.View(), pixels_.LogicalSize()));
    }
    std::vector<QRgb> Seen() const { return {pixels_.Bits().begin(), pixels_.Bits().end()}; }
    std::vector<QRgb> Draw(Int32 seconds, bool hideIcon = true, bool showTimeUp = false) {
        Timer().Redraw(OnSurface(), seconds, 0.95, hideIcon, showTimeUp);
        return Seen();
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

    /// Which of the four colours a pixel shows, the smoothing of edges set aside.
    static Color Nearest(QRgb seen) {
        const auto distance = [seen](Color c) {
            return std::abs(qRed(seen) - c.Red()) + std::abs(qGreen(seen) - c.Green()) +
                   std::abs(qBlue(seen) - c.Blue());
        };
        return std::ranges::min({kBackground, kFace, kWedge, kFrame}, {}, distance);
    }
    Color At(QPointF point) const {
        const QPoint pixel = (point * surface.ratio - QPointF(0.5, 0.5)).toPoint();
        return Nearest(
            pixels_.Bits()[static_cast<std::size_t>(pixel.y()) * row_ + static_cast<std::size_t>(pixel.x())]);
    }
    Color At(double minute, double radius) const { return At(Point(minute, radius)); }
    /// Whether the frame's colour shows there or up to a pixel before: marks begin at whole pixels, fractions dropped.
    bool HasMark(double minute, double radius) const {
        const QPointF there = Point(minute, radius);
        return At(there) == kFrame || At(there - QPointF(0.5, 0.5)) == kFrame || At(there - QPointF(1, 1)) == kFrame;
    }

    static QRgb Opaque(Color color) { return qRgb(color.Red(), color.Green(), color.Blue()); }
    auto Count(Color color) const { return std::ranges::count(pixels_.Bits(), Opaque(color)); }

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
    Draw(1);
    const auto faceWithSliver = Count(kFace);
    Draw(0);
    EXPECT_EQ(Count(kWedge), 0);
    EXPECT_GT(Count(kFace), faceWithSliver);
}

TEST_P(ClockPictureTest, RingAndMarksLieOverTheWedgeAndTheBackgroundReachesEachCorner) {
    const auto bits = Draw(3600);
    EXPECT_EQ(Count(kFace), 0);
    for (const QRgb corner : {bits.front(), bits[row_ - 1], bits[bits.size() - row_], bits.back()})
        EXPECT_EQ(corner, Opaque(kBackground));
    if (IsTiny()) return;  // lines of a pixel and less have no colour of their own
    const double edge = 1.5 / Radius(), end = 3 / Radius();
    for (int minute = 0; minute < 60; ++minute) {
        SCOPED_TRACE(minute);
        EXPECT_EQ(At(minute + 0.5, 0.97 - edge), kWedge);
        EXPECT_EQ(At(minute + 0.5, 0.97 + edge), kFrame);
        EXPECT_EQ(At(minute + 0.5, 1.03 - edge), kFrame);
        EXPECT_EQ(At(minute + 0.5, 1.03 + edge), kBackground);
        EXPECT_TRUE(HasMark(minute, 0.9 + end));
        EXPECT_EQ(HasMark(minute, 0.9 - end), minute % 5 == 0);
        EXPECT_EQ(HasMark(minute, 0.8 + end), minute % 5 == 0);
        EXPECT_FALSE(HasMark(minute, 0.8 - end));
    }
    // The ring, and what of the marks lies within it: 12 that are 0.04 wide, 48 of half of that.
    const auto frame = static_cast<double>(std::ranges::count(bits, kFrame, Nearest));
    EXPECT_NEAR(frame / std::pow(Radius() * surface.ratio, 2),
                std::numbers::pi * 0.12 + 12 * 0.04 * 0.17 + 48 * 0.02 * 0.07, 0.01 + 5 / (Radius() * surface.ratio));
}

TEST_P(ClockPictureTest, TheAlertTextIsCentredWithinTheFace) {
    const auto without = Draw(0);
    const auto frame = Count(kFrame);
    const auto with = Draw(0, true, true);
    QRect changed;
    for (std::size_t i = 0; i < without.size(); ++i) {
        if (with[i] != without[i]) changed |= QRect(static_cast<int>(i % row_), static_cast<int>(i / row_), 1, 1);
    }
    EXPECT_NEAR(changed.center().x() / surface.ratio, surface.width / 2.0, 0.02 * Radius() + 2);
    EXPECT_NEAR(changed.center().y() / surface.ratio, surface.height / 2.0, 0.1 * Radius() + 2);
    // The smallest text is 8 pixels high and too wide for a tiny clock.
    if (IsTiny()) return;
    EXPECT_GT(Count(kFrame), frame);
    EXPECT_NEAR(changed.width() / surface.ratio, 1.6 * Radius(), 0.12 * Radius() + 2);
}

TEST_P(ClockPictureTest, TheWindowShowsItsTimeWithTheIconOfItsState) {
    if (IsTiny()) return;  // the icon lies over the text
    Timer().CurrentSeconds = 1000;
    for (auto* const icon : {Pause_Icon, Run_Icon, Alert_Icon}) {
        Timer().IsRunning = icon == Run_Icon;
        Timer().IsDone = icon == Alert_Icon;
        Draw(1000, true, Timer().IsDone);
        OnSurface()->DrawPicture(icon(), 10, 10, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
        const auto expected = Seen();
        Timer().cvTime_Paint(OnSurface());
        EXPECT_EQ(Seen(), expected);
    }
}

constexpr Surface kSurfaces[] = {{441, 229, 1}, {400, 150, 2}, {33, 33, 1.5}, {1280, 1024, 1}};
INSTANTIATE_TEST_SUITE_P(Sizes, ClockPictureTest, testing::ValuesIn(kSurfaces));

}  // namespace
