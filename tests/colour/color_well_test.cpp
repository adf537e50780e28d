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

const Color kColor = RGB(60, 150, 200);
const std::string kPicked = "SelectColor Pick a color:";

struct WellProbe final : Window {
    static WellProbe& Instance() { return ImplicitInstance<WellProbe>("WellProbe.WellProbe"); }
    void CreateControls() override {
        AddControl<GroupBox>("group", 0, 0, 100, 100, 0);
        auto& well = AddControl<SmartColorWell>("well", 10, 20, 32, 32, 1);
        well.InitialParent("group");
        well.ColorSelected = kColor;
        AddControl<SmartColorWell>("flat", 110, 10, 60, 19, 2);
        AddControl<SmartColorWell>("negative", 150, 40, 32, 32, 4).Margin = -1;
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
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &drop);
        return well.getColorAsHexString();
    }

    RecordingHost& host = RecordingHost::InstallNew();
    WellProbe& window = WellProbe::Instance();
    SmartColorWell& well = window.Find<SmartColorWell>("well");
    QWidget& widget = WidgetNamed("well");
    std::vector<Color> changes;
    int ups = 0;
};

/// A place that shows a part of the look, and how red it is there.
struct Part {
    QPoint at;
    int raised, pressed;
    bool isSwatch;
};
const Part kParts[] = {
    {{31, 16}, 128, 71, false}, {{3, 31}, 128, 71, false},   {{1, 16}, 217, 105, false}, {{3, 1}, 252, 140, false},
    {{3, 2}, 237, 125, false},  {{28, 30}, 242, 130, false}, {{3, 6}, 230, 117, false},  {{28, 25}, 255, 143, false},
    {{26, 16}, 45, 11, true},   {{25, 16}, 52, 19, true},    {{16, 25}, 60, 26, true},
};

enum class Look { Raised, Pressed, PaleAroundSwatch, Pale };

void ExpectLook(QWidget& widget, Look look) {
    const QImage seen = widget.grab().toImage();
    const int ground = widget.palette().color(QPalette::Window).red();
    for (const auto& [at, raised, pressed, isSwatch] : kParts) {
        const int solid = look == Look::Pressed ? pressed : raised;
        const bool isPale = look == Look::Pale || (look == Look::PaleAroundSwatch && !isSwatch);
        EXPECT_NEAR(qRed(seen.pixel(at)), isPale ? (solid * 127 + ground * 128) / 255 : solid, 1)
            << at.x() << ", " << at.y();
    }
}

TEST_F(ColorWellTest, LooksRaisedPressedAndDimmed) {
    const auto margin = [this](const char* name) { return window.Find<SmartColorWell>(name).Margin; };
    EXPECT_TRUE(margin("flat") == 2 && margin("negative") == 0);
    ExpectLook(widget, Look::Raised);
    window.Find<GroupBox>("group").Enabled(false);
    ExpectLook(widget, Look::PaleAroundSwatch);
    well.AlsoDimColor = true;
    ExpectLook(widget, Look::Pale);
    well.AlsoDimColor = false;
    window.Find<GroupBox>("group").Enabled(true);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(Eventually([this] { return !widget.isActiveWindow(); }));
    ExpectLook(widget, Look::Pale);
    host.picking = [this](Color) { ExpectLook(widget, Look::Raised); };
    well.pickColor();
    EXPECT_THAT(host.calls, ElementsAre(kPicked));
}

TEST_F(ColorWellTest, ThePressedLookFollowsThePointerAndAReleaseInsidePicks) {
    PressAt(16, 16);
    ExpectLook(widget, Look::Pressed);
    MoveTo(32, 16);
    ExpectLook(widget, Look::Raised);
    MoveTo(0, 0);
    ExpectLook(widget, Look::Pressed);
    MoveTo(0, -0.1);
    ExpectLook(widget, Look::Raised);
    ReleaseAt(0, -0.1);
    EXPECT_THAT(host.calls, testing::IsEmpty());
    PressAt(16, 16);
    ReleaseAt(31, 31);
    EXPECT_THAT(host.calls, ElementsAre(kPicked));
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
    EXPECT_EQ(pressAndMove(16, 9, Qt::AltModifier), dragged);
    EXPECT_EQ(pressAndMove(16, -4, Qt::ControlModifier), dragged);
    EXPECT_EQ(pressAndMove(16, 3, Qt::ControlModifier), kPicked);
    EXPECT_EQ(pressAndMove(4, 9, Qt::AltModifier), kPicked) << "from the bevel";
    EXPECT_EQ(pressAndMove(27, -9, Qt::AltModifier), dragged) << "from the pixel beyond the swatch";
    well.EnableColorDrag = true;
    EXPECT_EQ(pressAndMove(16, 9, Qt::NoModifier), dragged);
    EXPECT_EQ(ups, 7);
    ExpectLook(widget, Look::Raised);
}

TEST_F(ColorWellTest, DroppedTextsBecomeColours) {
    EXPECT_EQ(Drop("00fF0a"), "#00FF0A");
    EXPECT_EQ(Drop("#123456 and more"), "#123456");
    EXPECT_EQ(Drop("no colour"), "#000000");
    EXPECT_EQ(Drop("#7fffffff"), "#FFFFFF");
    EXPECT_EQ(Drop("#050aFF"), "#050AFF");
    Drop("050aff");
    EXPECT_EQ(changes.size(), 5U) << "the present colour, written differently, is a change";
}

// The same text twice is taken once, unless the colour has come from elsewhere in between.
TEST_F(ColorWellTest, KnowsTheTextThatItsColourCameFrom) {
    const auto isTaken = [this] {
        well.ColorSelected = kColor;
        return Drop("#00FF00") == "#00FF00";
    };
    EXPECT_TRUE(isTaken());
    EXPECT_FALSE(isTaken());
    well.setColor(RGB(1, 2, 3));
    EXPECT_TRUE(isTaken());
    host.pickedColor = well.getColor();
    changes.clear();
    well.pickColor();
    EXPECT_THAT(changes, ElementsAre(RGB(0, 255, 0))) << "confirmed, though it is the same";
    EXPECT_TRUE(isTaken());
}

}  // namespace
