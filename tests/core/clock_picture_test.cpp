#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "platform/qt/drawing/PainterGraphics.h"
#include "platform/qt/drawing/Pixels.h"
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

    /// How much of the surface shows a colour, in parts of the radius times itself.
    double Area(Color color) const {
        Int64 count = 0;
        for (int y = 0; y < surface.height * surface.ratio; ++y) {
            for (int x = 0; x < surface.width * surface.ratio; ++x)
                count += At(QPointF(x + 0.5, y + 0.5) / surface.ratio) == color;
        }
        return static_cast<double>(count) / std::pow(Radius() * surface.ratio, 2);
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
    EXPECT_NEAR(Area(kFrame), std::numbers::pi * 0.12 + 12 * 0.04 * 0.17 + 48 * 0.02 * 0.07,
                0.01 + 5 / (Radius() * surface.ratio));
    EXPECT_EQ(bits[row_ * 18 + 18], Opaque(kBackground)) << "the icon shows";
}

TEST_P(ClockPictureTest, TheAlertTextIsCentredWithinTheFace) {
    Draw(0);
    const std::vector<QRgb> without(pixels_.Bits().begin(), pixels_.Bits().end());
    const auto frame = Count(kFrame);
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
    EXPECT_GT(Count(kFrame), frame);
    EXPECT_NEAR(changed.width() / surface.ratio, 1.6 * Radius(), 0.12 * Radius() + 2);
    const std::vector<QRgb> with(pixels_.Bits().begin(), pixels_.Bits().end());
    Timer().IsDone = true;
    Draw(0);
    EXPECT_TRUE(std::ranges::equal(with, pixels_.Bits())) << "the alert differs from the end of a movie";
}

TEST_F(TimerWindowTest, ATextIsFittedToASize) {
    const std::string text = "Time is Up!";
    const Ref<Picture> picture = NewPicture(1, 1, 32);
    Graphics& graphics = *picture->Graphics();
    const auto width = [&](Int32 size) { return graphics.TextSize(size), ToInt32(graphics.StringWidth(text)); };
    EXPECT_EQ(Timer().GetTextSize(graphics, text, 20), 8);
    for (const Int32 limit : {60, 100, 168, 300, 1500}) {
        const Int32 size = Timer().GetTextSize(graphics, text, limit);
        EXPECT_LE(width(size - 1), limit);
        EXPECT_GT(width(size + 2), limit);
    }
}

constexpr Surface kSurfaces[] = {
    {441, 229, 1}, {441, 229, 1.5}, {441, 229, 2}, {400, 150, 1},   {400, 150, 1.5},   {400, 150, 2},
    {33, 33, 1},   {33, 33, 1.5},   {33, 33, 2},   {1920, 1080, 1}, {1920, 1080, 1.5}, {1920, 1080, 2},
};
INSTANTIATE_TEST_SUITE_P(Sizes, ClockPictureTest, testing::ValuesIn(kSurfaces));

}  // namespace
