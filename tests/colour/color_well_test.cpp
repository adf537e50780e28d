#include "colour/SmartColorWell.h"

#include <gmock/gmock.h>

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <cmath>
#include <vector>

#include "platform/Controls.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingHost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Int32 kSide = 32;
constexpr Int32 kMargin = 5;
const Color kColor = RGB(200, 60, 150);

struct WellProbe final : Window {
    static WellProbe& Instance() { return ImplicitInstance<WellProbe>("WellProbe.WellProbe"); }

    void Layout() override {
        Width(200);
        Height(100);
    }
    void CreateControls() override {
        AddControl<GroupBox>("group", 0, 0, 100, 100, 0);
        auto& added = AddControl<SmartColorWell>("well", 10, 20, kSide, kSide, 1);
        added.InitialParent("group");
        added.ColorSelected = kColor;
        AddControl<SmartColorWell>("flat", 110, 10, 60, 19, 2);
        AddControl<SmartColorWell>("given", 110, 40, kSide, kSide, 3).Margin = 3;
        AddControl<SmartColorWell>("negative", 150, 40, kSide, kSide, 4).Margin = -1;
    }
};

class ColorWellTest : public testing::Test {
  protected:
    ColorWellTest() {
        window.Show();
        widget.activateWindow();
        EXPECT_TRUE(Eventually([this] { return well.Active(); }));
        well.ColorChange = [this](Color c) { changes.push_back(c); };
        well.MouseUp = [this](Int32, Int32) { ++ups; };
    }
    ~ColorWellTest() override { End(window); }

    // Unlike what tests send otherwise, this changes the keys that are known to be held.
    void PressAt(int x, int y, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::mousePress(&widget, Qt::LeftButton, held, {x, y});
    }
    void MoveTo(double x, double y) { Mouse(QEvent::MouseMove, widget, {x, y}, Qt::NoButton, Qt::LeftButton); }
    void ReleaseAt(double x, double y) { Mouse(QEvent::MouseButtonRelease, widget, {x, y}); }

    std::string Drop(const QString& text) {
        QMimeData data;
        data.setText(text);
        const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter({5, 5}, offered, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(&widget, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({5, 5}, offered, &data, Qt::LeftButton, Qt::NoModifier);
        drop.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(&widget, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the text stays where it came from";
        return well.getColorAsHexString();
    }

    RecordingHost& host = RecordingHost::InstallNew();
    WellProbe& window = WellProbe::Instance();
    SmartColorWell& well = window.Find<SmartColorWell>("well");
    QWidget& widget = WidgetNamed("well");
    std::vector<Color> changes;
    int ups = 0;
};

// The look, told once more by what lies uppermost at each point.

struct Look {
    bool isPressed = false;
    bool isBevelPale = false;
    bool isSwatchPale = false;
};

int GreyAt(Int32 x, Int32 y, double darkening) {
    constexpr Int32 kLast = kSide - 1;
    const auto grey = [](double value) { return static_cast<int>(std::lround(value * 255)); };
    if (x == 0 || y == 0 || x == kLast || y == kLast) return grey(0.5 - darkening / 2);
    const bool isWithin = x >= 2 && x <= kLast - 2;
    if (y == 1) return grey(0.99 - darkening);
    if (y == kLast - 1 && isWithin) return grey(0.95 - darkening);
    if (x == 1 || x == kLast - 1 || y == kLast - 1) return grey(0.85 - darkening);
    if (y == 2) return grey(0.93 - darkening);
    // 0.2 of the height is 6.4: the bands begin at 0, 6, 12, 19, 25, and each is covered by the next.
    const double bands[] = {0.87, 0.9, 0.93, 0.96, 1.0};
    const int band = (y >= 6) + (y >= 12) + (y >= 19) + (y >= 25);
    return grey(bands[band] - darkening);
}

/// In this order red, green and blue are the highest, the lowest and the middle component of kColor.
QRgb SwatchAt(Int32 x, Int32 y, double darkening) {
    const auto isEdge = [](Int32 p) { return p == kMargin || p == kSide - 1 - kMargin; };
    const auto isNext = [](Int32 p) { return p == kMargin + 1 || p == kSide - 2 - kMargin; };
    double value = 200 / 255.0 - darkening;
    if (isEdge(x) || isEdge(y)) {
        value -= 0.2;
    } else if (isNext(x) || y == kMargin + 1) {  // below, it lies beneath the outer frame
        value -= 0.1;
    }
    const auto share = [value](double part) { return static_cast<int>(std::lround(255 * value * part / 200)); };
    return qRgb(share(200), share(60), share(150));
}

MATCHER_P2(IsNear, expected, tolerance, "") {
    return std::abs(qRed(arg) - qRed(expected)) <= tolerance && std::abs(qGreen(arg) - qGreen(expected)) <= tolerance &&
           std::abs(qBlue(arg) - qBlue(expected)) <= tolerance;
}

void ExpectLook(QWidget& widget, const Look& look) {
    const QImage seen = widget.grab().toImage();
    ASSERT_EQ(seen.size(), QSize(kSide, kSide));
    const QColor ground = widget.palette().color(QPalette::Window);
    const auto paled = [&ground](QRgb c) {
        const auto half = [](int a, int b) { return (a * 127 + b * 128) / 255; };
        return qRgb(half(qRed(c), ground.red()), half(qGreen(c), ground.green()), half(qBlue(c), ground.blue()));
    };
    const double darkening = look.isPressed ? 0.44 : 0;
    for (Int32 y = 0; y < kSide; ++y) {
        for (Int32 x = 0; x < kSide; ++x) {
            const bool isSwatch = std::min(x, y) >= kMargin && std::max(x, y) < kSide - kMargin;
            const int grey = GreyAt(x, y, darkening);
            const QRgb solid = isSwatch ? SwatchAt(x, y, darkening) : qRgb(grey, grey, grey);
            const bool isPale = isSwatch ? look.isSwatchPale : look.isBevelPale;
            ASSERT_THAT(seen.pixel(x, y), IsNear(isPale ? paled(solid) : solid, isPale || isSwatch ? 1 : 0))
                << x << ", " << y;
        }
    }
}

TEST_F(ColorWellTest, LooksRaisedPressedAndDimmed) {
    ExpectLook(widget, {});
    PressAt(3, 3);
    ExpectLook(widget, {.isPressed = true});
    EXPECT_EQ(qRed(widget.grab().toImage().pixel(3, 4)), 110) << "0.87 - 0.44";
    EXPECT_EQ(qRed(widget.grab().toImage().pixel(0, 4)), 71) << "0.5 - 0.44 / 2";
    ReleaseAt(-1, 3);

    window.Find<GroupBox>("group").Enabled(false);
    ExpectLook(widget, {.isBevelPale = true});
    well.AlsoDimColor = true;
    ExpectLook(widget, {.isBevelPale = true, .isSwatchPale = true});
    well.AlsoDimColor = false;
    window.Find<GroupBox>("group").Enabled(true);
    ExpectLook(widget, {});

    QApplication::setActiveWindow(nullptr);
    ExpectLook(widget, {.isBevelPale = true, .isSwatchPale = true});
    host.picking = [this](Color) { ExpectLook(widget, {}); };
    well.pickColor();
    EXPECT_THAT(host.calls, ElementsAre("SelectColor Pick a color:"));
}

TEST_F(ColorWellTest, KeepsItsMarginWithinReason) {
    EXPECT_EQ(well.Margin, 5);
    EXPECT_EQ(window.Find<SmartColorWell>("flat").Margin, 2);
    EXPECT_EQ(window.Find<SmartColorWell>("given").Margin, 3);
    EXPECT_EQ(window.Find<SmartColorWell>("negative").Margin, 0);
}

TEST_F(ColorWellTest, ThePressedLookFollowsThePointerAndAReleaseInsidePicks) {
    PressAt(16, 16);
    MoveTo(31.9, 16);
    ExpectLook(widget, {.isPressed = true});
    MoveTo(32, 16);
    ExpectLook(widget, {});
    MoveTo(0, 0);
    ExpectLook(widget, {.isPressed = true});
    MoveTo(-0.1, 0);
    ReleaseAt(-0.1, 0);
    EXPECT_THAT(host.calls, IsEmpty());

    PressAt(16, 16);
    ReleaseAt(31, 31);
    EXPECT_THAT(host.calls, ElementsAre("SelectColor Pick a color:"));
    ExpectLook(widget, {});
    EXPECT_EQ(ups, 2);
}

TEST_F(ColorWellTest, APressOnTheSwatchWithAKeyHeldDragsTheColour) {
    const auto pressAndMove = [this](int from, int by, Qt::KeyboardModifiers held) {
        host.calls.clear();
        PressAt(from, from, held);
        MoveTo(from + 2, from + by);
        ReleaseAt(from, from);  // when it was dragged, that press is over already
        return host.calls.back();
    };
    const std::string dragged = "DragText #C83C96";
    const std::string picked = "SelectColor Pick a color:";
    EXPECT_EQ(pressAndMove(16, 9, Qt::NoModifier), picked);
    EXPECT_EQ(pressAndMove(16, 9, Qt::ControlModifier), dragged);
    EXPECT_EQ(pressAndMove(16, 9, Qt::AltModifier), dragged);
    EXPECT_EQ(pressAndMove(16, -4, Qt::ShiftModifier), dragged);
    EXPECT_EQ(pressAndMove(16, 3, Qt::ControlModifier), picked);
    EXPECT_EQ(pressAndMove(4, 9, Qt::AltModifier), picked) << "from the bevel";
    EXPECT_EQ(pressAndMove(27, -9, Qt::AltModifier), dragged) << "from the pixel beyond the swatch";
    well.EnableColorDrag = true;
    EXPECT_EQ(pressAndMove(16, 9, Qt::NoModifier), dragged);
    EXPECT_EQ(ups, 8);
    ExpectLook(widget, {});
}

TEST_F(ColorWellTest, DroppedTextsBecomeColours) {
    EXPECT_EQ(Drop("#ff0000"), "#FF0000");
    EXPECT_EQ(changes.size(), 1U);
    well.ColorSelected = RGB(0, 0, 0);
    EXPECT_EQ(Drop("#ff0000"), "#000000") << "the same text twice";
    well.setColor(RGB(1, 2, 3));
    EXPECT_EQ(Drop("#ff0000"), "#FF0000") << "the colour has come from elsewhere in between";
    EXPECT_EQ(Drop("00fF0a"), "#00FF0A");
    EXPECT_EQ(changes.size(), 4U);
    EXPECT_EQ(Drop("#00FF0A"), "#00FF0A");
    EXPECT_EQ(changes.size(), 4U) << "the present colour, written differently";

    EXPECT_EQ(Drop("#123456 and more"), "#123456");
    EXPECT_EQ(Drop("no colour"), "#000000");
    EXPECT_EQ(Drop("#7fffffff"), "#FFFFFF");
    EXPECT_EQ(Drop("#" + QString(1'000'000, u'9')), "#FFFFFF");
    EXPECT_EQ(Drop(""), "#000000");
    well.setColor(RGB(5, 10, 255));
    EXPECT_EQ(well.getColorAsHexString(), "#050AFF");
}

TEST_F(ColorWellTest, PickingAndSettingRaiseWhatTheyMust) {
    well.setColor(kColor);
    EXPECT_THAT(changes, IsEmpty());

    Drop("#00FF00");
    changes.clear();
    well.pickColor();
    EXPECT_THAT(changes, IsEmpty()) << "cancelled";
    well.ColorSelected = kColor;
    EXPECT_EQ(Drop("#00FF00"), well.getColorAsHexString()) << "the text is still the last one";

    host.pickedColor = kColor;
    well.pickColor();
    well.pickColor();
    EXPECT_THAT(changes, ElementsAre(kColor, kColor)) << "confirmed, though it is the same";
    EXPECT_EQ(Drop("#00FF00"), "#00FF00");
}

TEST(Colors, EachComesBackFromItsHueSaturationAndValue) {
    constexpr Int32 kAll = 1 << 24;
    Int32 lost = 0;
    for (Int32 value = 0; value < kAll; value += 7) {
        const Color color{value};
        lost += HSV(readColorHue(color), readColorSaturation(color), readColorValue(color)) != color;
    }
    EXPECT_EQ(lost, 0);
    EXPECT_DOUBLE_EQ(readColorHue(RGB(0, 255, 0)), 1 / 3.0);
    EXPECT_DOUBLE_EQ(readColorHue(RGB(255, 0, 255)), 5 / 6.0);
    EXPECT_EQ(HSV(0.5, 1, 0.5), RGB(0, 128, 128));
    EXPECT_EQ(HSV(1, 0.5, 1), RGB(255, 128, 128));
}

}  // namespace
