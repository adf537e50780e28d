#include "colour/SmartColorWell.h"

#include <gmock/gmock.h>

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <vector>

#include "platform/Controls.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingHost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Int32 kSide = 32;
const Color kColor = RGB(60, 150, 200);
const std::string kPicked = "SelectColor Pick a color:";

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

/// Two corners of a part of the look, and how red it is.
struct Stretch {
    QPoint from, to;
    int raised, pressed;
};
// 0.2 of the height is 6.4: the bands begin at 0, 6, 12, 19, 25, and each is covered by the next.
const std::vector<Stretch> kBevel = {
    {{0, 0}, {31, 31}, 128, 71},   {{0, 31}, {31, 0}, 128, 71},   {{1, 2}, {1, 30}, 217, 105},
    {{30, 2}, {30, 30}, 217, 105}, {{1, 1}, {30, 1}, 252, 140},   {{2, 2}, {29, 2}, 237, 125},
    {{2, 3}, {29, 5}, 222, 110},   {{2, 6}, {29, 11}, 230, 117},  {{2, 12}, {29, 18}, 237, 125},
    {{2, 19}, {29, 24}, 245, 133}, {{2, 25}, {29, 29}, 255, 143}, {{2, 30}, {29, 30}, 242, 130}};
const std::vector<Stretch> kSwatch = {{{5, 5}, {26, 26}, 45, 11},
                                      {{5, 26}, {26, 5}, 45, 11},
                                      {{6, 6}, {25, 25}, 52, 19},
                                      {{6, 25}, {25, 6}, 52, 19},
                                      {{7, 7}, {24, 25}, 60, 26}};

struct Look {
    bool isPressed = false;
    bool isBevelPale = false;
    bool isSwatchPale = false;
};

void ExpectLook(QWidget& widget, const Look& look) {
    const QImage seen = widget.grab().toImage();
    const int ground = widget.palette().color(QPalette::Window).red();
    for (const auto& [stretches, isPale] : {std::pair(kBevel, look.isBevelPale), {kSwatch, look.isSwatchPale}}) {
        for (const auto& [from, to, raised, pressed] : stretches) {
            const int solid = look.isPressed ? pressed : raised;
            for (const QPoint& place : {from, to})
                EXPECT_NEAR(qRed(seen.pixel(place)), isPale ? (solid * 127 + ground * 128) / 255 : solid, 1)
                    << place.x() << ", " << place.y();
        }
    }
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
    QApplication::setActiveWindow(nullptr);
    ExpectLook(widget, {.isBevelPale = true, .isSwatchPale = true});
    host.picking = [this](Color) { ExpectLook(widget, {}); };
    well.pickColor();
    EXPECT_THAT(host.calls, ElementsAre(kPicked));
}

TEST_F(ColorWellTest, KeepsItsMarginWithinReason) {
    const auto margin = [this](const char* name) { return window.Find<SmartColorWell>(name).Margin; };
    EXPECT_TRUE(margin("flat") == 2 && margin("given") == 3 && margin("negative") == 0);
}

TEST_F(ColorWellTest, ThePressedLookFollowsThePointerAndAReleaseInsidePicks) {
    PressAt(16, 16);
    for (const auto& [x, y, isInside] :
         {std::tuple(31.9, 16.0, true), {32, 16, false}, {0, 0, true}, {0, -0.1, false}}) {
        MoveTo(x, y);
        ExpectLook(widget, {.isPressed = isInside});
    }
    ReleaseAt(0, -0.1);
    EXPECT_THAT(host.calls, IsEmpty());
    PressAt(16, 16);
    ReleaseAt(31, 31);
    EXPECT_THAT(host.calls, ElementsAre(kPicked));
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
    const std::string dragged = "DragText #3C96C8";
    EXPECT_EQ(pressAndMove(16, 9, Qt::NoModifier), kPicked);
    EXPECT_EQ(pressAndMove(16, 9, Qt::ControlModifier), dragged);
    EXPECT_EQ(pressAndMove(16, 9, Qt::AltModifier), dragged);
    EXPECT_EQ(pressAndMove(16, -4, Qt::ShiftModifier), dragged);
    EXPECT_EQ(pressAndMove(16, 3, Qt::ControlModifier), kPicked);
    EXPECT_EQ(pressAndMove(4, 9, Qt::AltModifier), kPicked) << "from the bevel";
    EXPECT_EQ(pressAndMove(27, -9, Qt::AltModifier), dragged) << "from the pixel beyond the swatch";
    well.EnableColorDrag = true;
    EXPECT_EQ(pressAndMove(16, 9, Qt::NoModifier), dragged);
    EXPECT_EQ(ups, 8);
    ExpectLook(widget, {});
}

TEST_F(ColorWellTest, DroppedTextsBecomeColours) {
    const std::pair<QString, const char*> rows[] = {
        {"00fF0a", "#00FF0A"},    {"#123456 and more", "#123456"}, {"no colour", "#000000"},
        {"#7fffffff", "#FFFFFF"}, {"#050aFF", "#050AFF"},          {"#" + QString(1'000'000, u'9'), "#FFFFFF"},
        {"", "#000000"}};
    for (const auto& [text, colour] : rows)
        EXPECT_EQ(Drop(text), colour);
    EXPECT_EQ(changes.size(), 7U);
    Drop("#000000");
    EXPECT_EQ(changes.size(), 7U) << "the present colour, written differently";
}

// The same text twice is taken once, unless the colour has come from elsewhere in between.
TEST_F(ColorWellTest, KnowsTheTextThatItsColourCameFrom) {
    const auto isTaken = [this] {
        well.ColorSelected = kColor;
        return Drop("#00FF00") == "#00FF00";
    };
    EXPECT_TRUE(isTaken());
    EXPECT_FALSE(isTaken());
    well.setColor(kColor);
    well.pickColor();
    EXPECT_FALSE(isTaken()) << "neither is a change";
    EXPECT_EQ(changes.size(), 1U);
    well.setColor(RGB(1, 2, 3));
    EXPECT_TRUE(isTaken());
    host.pickedColor = kColor;
    changes.clear();
    well.pickColor();
    well.pickColor();
    EXPECT_THAT(changes, ElementsAre(kColor, kColor)) << "confirmed, though it is the same";
    EXPECT_TRUE(isTaken());
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
