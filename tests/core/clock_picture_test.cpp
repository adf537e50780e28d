#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/qt/PainterGraphics.h"
#include "platform/qt/Pixels.h"
#include "tests/support/TimerWindowTest.h"

// How the picture looks: what colour must be at which angle and radius, at several sizes and scale factors.

namespace {

const Color kBackground = RGB(0x20, 0x40, 0x60);
const Color kFace = RGB(0xFF, 0xF0, 0xE0);
const Color kWedge = RGB(0xE0, 0x10, 0x90);
const Color kFrame = RGB(0x10, 0x70, 0x30);

struct Surface {
    Int32 width;
    Int32 height;
    double ratio;
};

void PrintTo(const Surface& surface, std::ostream* out) {
    *out << surface.width << " x " << surface.height << " at " << surface.ratio;
}

class ClockPictureTest : public TimerWindowTest, public testing::WithParamInterface<Surface> {
  protected:
    ClockPictureTest() : pixels_(QSize(GetParam().width, GetParam().height), GetParam().ratio) {
        Timer().Color_Window_Background = kBackground;
        Timer().Color_Clock_Face = kFace;
        Timer().Color_Clock_Wedge = kWedge;
        Timer().Color_Clock_Frame = kFrame;
    }

    void Draw(Int32 seconds, bool showTimeUp = false) {
        Timer().Redraw(MakeRef<PainterGraphics>(pixels_.View(), pixels_.LogicalSize()), seconds, 0.95, true,
                       showTimeUp);
    }

    double Radius() const { return std::min(GetParam().width, GetParam().height) * 0.95 * 0.97 / 2; }

    /// The point at an angle in minutes of the face, clockwise from 12 o'clock, and a radius of 1 at the ring's middle.
    QPointF Point(double minute, double radius) const {
        const double angle = (minute / 60 - 0.25) * 2 * std::numbers::pi;
        // The centre's half pixel is dropped.
        return QPointF(GetParam().width / 2 + std::cos(angle) * radius * Radius(),
                       GetParam().height / 2 + std::sin(angle) * radius * Radius());
    }

    /// Which of the four colours a point shows, its edges' smoothing set aside.
    Color At(QPointF point) {
        const Color seen = Pixel(point.x() * GetParam().ratio, point.y() * GetParam().ratio);
        const auto distance = [seen](Color c) {
            return std::abs(seen.Red() - c.Red()) + std::abs(seen.Green() - c.Green()) +
                   std::abs(seen.Blue() - c.Blue());
        };
        const Color colors[] = {kBackground, kFace, kWedge, kFrame};
        return *std::min_element(std::begin(colors), std::end(colors),
                                 [&](Color a, Color b) { return distance(a) < distance(b); });
    }
    Color At(double minute, double radius) { return At(Point(minute, radius)); }

    /// Whether the frame's colour shows there or up to a pixel before: marks begin at whole pixels, fractions dropped.
    bool HasMark(double minute, double radius) {
        for (const double left : {0.0, 0.5, 1.0}) {
            for (const double up : {0.0, 0.5, 1.0}) {
                if (At(Point(minute, radius) - QPointF(left, up)) == kFrame) return true;
            }
        }
        return false;
    }

    Color Pixel(double x, double y) {
        const QRgb pixel = pixels_.View().pixel(static_cast<int>(x), static_cast<int>(y));
        return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
    }

    Int32 Count(Color color) {
        const QImage view = pixels_.View();
        Int32 count = 0;
        for (int y = 0; y < view.height(); ++y) {
            for (int x = 0; x < view.width(); ++x)
                count += Pixel(x, y) == color ? 1 : 0;
        }
        return count;
    }

    bool IsTiny() const { return Radius() < 20; }

    Picture::Pixels pixels_;
};

TEST_P(ClockPictureTest, FaceAndWedgeMeetAtTheTimeAndAtTwelve) {
    struct Row {
        Int32 seconds;
        double minutes;
    };
    for (const Row& row : {Row{0, 0}, Row{900, 15}, Row{1500, 25}, Row{3599, 59.99}, Row{3600, 60}, Row{3630, 60}}) {
        SCOPED_TRACE(row.seconds);
        Draw(row.seconds);
        for (double minute = 0.5; minute < 60; minute += 1) {  // between the marks
            const bool isWedge = minute > 60 - row.minutes;
            EXPECT_EQ(At(minute, 0.7), isWedge ? kWedge : kFace) << minute;
        }
    }
}

TEST_P(ClockPictureTest, ASecondIsASliverAndTheLastFillsTheFace) {
    Draw(1);
    const Int32 faceWithSliver = Count(kFace);
    Draw(0);
    EXPECT_EQ(Count(kWedge), 0);
    EXPECT_GT(Count(kFace), faceWithSliver);
    Draw(3600);
    EXPECT_EQ(Count(kFace), 0);
    const Int32 full = Count(kWedge);
    Draw(3630);
    EXPECT_NEAR(Count(kWedge), full, 3 * Radius() * GetParam().ratio);
    EXPECT_EQ(Count(kFace), 0);
}

TEST_P(ClockPictureTest, RingAndMarksLieOverTheWedge) {
    if (IsTiny()) GTEST_SKIP() << "lines of a pixel and less have no colour of their own";
    Draw(3600);
    for (int minute = 0; minute < 60; ++minute) {
        SCOPED_TRACE(minute);
        EXPECT_TRUE(HasMark(minute + 0.5, 1.0));
        EXPECT_EQ(At(minute + 0.5, 1.03 + 1.5 / Radius()), kBackground);
        EXPECT_TRUE(HasMark(minute, 0.94));
        EXPECT_EQ(HasMark(minute, 0.85), minute % 5 == 0);
        EXPECT_FALSE(HasMark(minute, 0.75));
    }
}

TEST_P(ClockPictureTest, TheBackgroundReachesTheLastPixel) {
    Draw(900);
    const QImage view = pixels_.View();
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(view.width() - 1, 0), std::pair(0, view.height() - 1),
                               std::pair(view.width() - 1, view.height() - 1)}) {
        EXPECT_EQ(Pixel(x, y), kBackground) << x << ", " << y;
    }
}

TEST_P(ClockPictureTest, TheAlertTextIsCentredWithinTheFace) {
    Draw(0);
    const QImage without = pixels_.View().copy();
    Draw(0, true);
    const QImage with = pixels_.View();
    QRect changed;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y)) changed |= QRect(x, y, 1, 1);
        }
    }
    const double ratio = GetParam().ratio;
    EXPECT_NEAR(changed.center().x() / ratio, GetParam().width / 2.0, 0.02 * Radius() + 2);
    EXPECT_NEAR(changed.center().y() / ratio, GetParam().height / 2.0, 0.1 * Radius() + 2);
    // The smallest text is 8 pixels high and too wide for a tiny clock.
    if (!IsTiny()) {
        EXPECT_NEAR(changed.width() / ratio, 1.6 * Radius(), 0.12 * Radius() + 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, ClockPictureTest,
                         testing::Values(Surface{441, 229, 1}, Surface{441, 229, 1.5}, Surface{441, 229, 2},
                                         Surface{400, 150, 1}, Surface{400, 150, 1.5}, Surface{400, 150, 2},
                                         Surface{33, 33, 1}, Surface{33, 33, 1.5}, Surface{33, 33, 2},
                                         Surface{1920, 1080, 1}, Surface{1920, 1080, 1.5}, Surface{1920, 1080, 2}));

}  // namespace
