#include <numbers>

#include "platform/qt/drawing/Surfaces.h"
#include "tests/support/TimerWindowTest.h"

// How the picture looks: what colour must be at which angle and radius, at several sizes and scale factors.

namespace {

const Color kBackground = RGB(0x20, 0x40, 0x60), kFace = RGB(0xFF, 0xF0, 0xE0), kWedge = RGB(0xE0, 0x10, 0x90),
            kFrame = RGB(0x10, 0x70, 0x30);

/// Where two pictures of the same size differ.
QRect Difference(const QImage& one, const QImage& other) {
    QRect difference;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y)) difference |= QRect(x, y, 1, 1);
    }
    return difference;
}

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

    /// A copy that shares nothing with the picture.
    QImage Seen() const { return WithMask(*picture).copy(); }
    QImage Draw(Int32 seconds, bool showTimeUp = false) const {
        Timer().Redraw(picture->Graphics(), seconds, 0.95, true, showTimeUp);
        return Seen();
    }

    double Radius() const { return std::min(surface.width, surface.height) * 0.95 * 0.97 / 2; }

    /// The point at an angle in minutes, clockwise from 12 o'clock, and at a radius, which is 1 in the middle
    /// of the ring. The centre's half pixel is dropped.
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
        return Nearest(WithMask(*picture).pixel((point * surface.ratio - QPointF(0.5, 0.5)).toPoint()));
    }
    Color At(double minute, double radius) const { return At(Point(minute, radius)); }
    /// Whether the frame's colour is there or up to a pixel before, since marks begin at a truncated coordinate.
    bool HasMark(double minute, double radius) const {
        const QPointF there = Point(minute, radius);
        return At(there) == kFrame || At(there - QPointF(0.5, 0.5)) == kFrame || At(there - QPointF(1, 1)) == kFrame;
    }
    auto Count(Color color) const {
        return std::ranges::count(picture->Bits(), 0xFF000000U | static_cast<std::uint32_t>(color.value));
    }

    const Surface surface = GetParam();
    const Ref<Picture> picture = NewPicture(surface.width, surface.height, 32, surface.ratio);
};

TEST_P(ClockPictureTest, FaceAndWedgeMeetAtTheTimeAndAtTwelve) {
    for (const auto& [seconds, minutes] : {std::pair(900, 15.0), {1500, 25.0}, {3599, 59.99}, {3630, 60.0}}) {
        Draw(seconds);
        for (double minute = 0.5; minute < 60; ++minute)  // between the marks
            EXPECT_EQ(At(minute, 0.7), minute > 60 - minutes ? kWedge : kFace) << seconds << " at " << minute;
    }
    const QImage sliver = Draw(1), none = Draw(0);
    EXPECT_EQ(Count(kWedge), 0);
    EXPECT_NE(sliver, none);
}

TEST_P(ClockPictureTest, RingAndMarksLieOverTheWedgeAndTheBackgroundReachesEachCorner) {
    const QRect all = Draw(3600).rect();
    for (const QPoint corner : {all.topLeft(), all.topRight(), all.bottomLeft(), all.bottomRight()})
        EXPECT_EQ(Nearest(Seen().pixel(corner)), kBackground);
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
    const auto frame = static_cast<double>(std::ranges::count(picture->Bits(), kFrame, Nearest));
    // The ring, and what of the marks lies within it: 12 that are 0.04 wide, 48 of half of that.
    EXPECT_NEAR(frame / std::pow(Radius() * surface.ratio, 2),
                std::numbers::pi * 0.12 + 12 * 0.04 * 0.17 + 48 * 0.02 * 0.07, 0.01 + 5 / (Radius() * surface.ratio));
}

TEST_P(ClockPictureTest, TheAlertTextIsCentredWithinTheFace) {
    const QImage without = Draw(0);
    const auto frame = Count(kFrame);
    const QRect changed = Difference(Draw(0, true), without);
    EXPECT_NEAR(changed.center().x() / surface.ratio, surface.width / 2.0, 0.02 * Radius() + 2);
    EXPECT_NEAR(changed.center().y() / surface.ratio, surface.height / 2.0, 0.1 * Radius() + 2);
    EXPECT_NEAR(changed.width() / surface.ratio, 1.6 * Radius(), 0.12 * Radius() + 2);
    EXPECT_GT(Count(kFrame), frame);
}

constexpr Surface kSurfaces[] = {{441, 229, 1}, {400, 150, 2}, {201, 201, 1.5}, {1280, 1024, 1}};
INSTANTIATE_TEST_SUITE_P(Sizes, ClockPictureTest, testing::ValuesIn(kSurfaces));

TEST(GraphicsTest, LinesAreSharp) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        const Ref<Picture> picture = NewPicture(80, 60, 32, ratio);
        const Ref<Graphics> g = picture->Graphics();
        const QImage view = picture->pixels().View(), blank = view.copy();
        g->DrawLine(3, 3, 3, 3);
        EXPECT_NE(view, blank);
        g->ClearRect(3, 3, 1, 1);
        EXPECT_EQ(view, blank) << "it isn't where that pixel is";
        g->DrawLine(1, 1, 70, 1);
        for (const QRgb pixel : picture->Bits())
            ASSERT_TRUE(pixel == qRgb(0, 0, 0) || pixel == qRgb(255, 255, 255));
    }
}

}  // namespace
