#include "colour/SmartColorWell.h"

#include <gmock/gmock.h>

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <cstdlib>
#include <span>
#include <vector>

#include "platform/Controls.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingHost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Int32 kSide = 32;
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

// The look, at each edge between two of its parts.

struct Spot {
    int x, y;
    QRgb raised, pressed;
};

constexpr Spot Grey(int x, int y, int raised, int pressed) {
    return {x, y, qRgb(raised, raised, raised), qRgb(pressed, pressed, pressed)};
}

constexpr Spot kBevel[] = {
    Grey(0, 16, 128, 71), Grey(31, 16, 128, 71), Grey(16, 0, 128, 71), Grey(16, 31, 128, 71),  // outline
    Grey(1, 16, 217, 105), Grey(30, 16, 217, 105), Grey(1, 30, 217, 105),                      // edges
    Grey(3, 1, 252, 140), Grey(3, 2, 237, 125), Grey(3, 30, 242, 130),
    // 0.2 of the height is 6.4: the bands begin at 0, 6, 12, 19, 25, and each is covered by the next.
    Grey(3, 3, 222, 110), Grey(3, 5, 222, 110), Grey(3, 6, 230, 117), Grey(3, 11, 230, 117), Grey(3, 12, 237, 125),
    Grey(3, 18, 237, 125), Grey(3, 19, 245, 133), Grey(3, 24, 245, 133), Grey(3, 25, 255, 143)};

constexpr Spot Swatch(int x, int y) { return {x, y, qRgb(200, 60, 150), qRgb(88, 26, 66)}; }
constexpr Spot InnerFrame(int x, int y) { return {x, y, qRgb(175, 52, 131), qRgb(62, 19, 47)}; }
constexpr Spot OuterFrame(int x, int y) { return {x, y, qRgb(149, 45, 112), qRgb(37, 11, 28)}; }

constexpr Spot kSwatch[] = {OuterFrame(5, 16), OuterFrame(26, 16), OuterFrame(16, 5), OuterFrame(16, 26),
                            InnerFrame(6, 16), InnerFrame(25, 16), InnerFrame(16, 6), Swatch(16, 25),
                            Swatch(7, 7),      Swatch(24, 24)};

struct Look {
    bool isPressed = false;
    bool isBevelPale = false;
    bool isSwatchPale = false;
};

MATCHER_P(IsNear, expected, "") {
    return std::abs(qRed(arg) - qRed(expected)) <= 1 && std::abs(qGreen(arg) - qGreen(expected)) <= 1 &&
           std::abs(qBlue(arg) - qBlue(expected)) <= 1;
}

void ExpectLook(QWidget& widget, const Look& look) {
    const QImage seen = widget.grab().toImage();
    const QColor ground = widget.palette().color(QPalette::Window);
    const auto paled = [&ground](QRgb c) {
        const auto half = [](int a, int b) { return (a * 127 + b * 128) / 255; };
        return qRgb(half(qRed(c), ground.red()), half(qGreen(c), ground.green()), half(qBlue(c), ground.blue()));
    };
    const auto expect = [&](std::span<const Spot> spots, bool isPale) {
        for (const Spot& spot : spots) {
            const QRgb solid = look.isPressed ? spot.pressed : spot.raised;
            EXPECT_THAT(seen.pixel(spot.x, spot.y), IsNear(isPale ? paled(solid) : solid)) << spot.x << ", " << spot.y;
        }
    };
    expect(kBevel, look.isBevelPale);
    expect(kSwatch, look.isSwatchPale);
}

TEST_F(ColorWellTest, LooksRaisedPressedAndDimmed) {
    ExpectLook(widget, {});
    PressAt(3, 3);
    ExpectLook(widget, {.isPressed = true});
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
