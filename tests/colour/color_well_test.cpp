#include "colour/SmartColorWell.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>

#include "colour/winPrefs.h"
#include "platform/Controls.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

const Color kColor = RGB(60, 150, 200);
const std::string kPicked = "SelectColor Pick a color:";

TEST(ColorTest, ComesBackFromItsHueSaturationAndValue) {
    const std::pair<Color, double> rows[] = {{RGB(200, 10, 10), 0},   {RGB(190, 200, 0), 1.05}, {RGB(0, 200, 20), 2.1},
                                             {RGB(10, 30, 210), 3.9}, {RGB(200, 0, 190), 5.05}, {RGB(7, 7, 7), 0}};
    for (const auto& [color, sixths] : rows) {
        EXPECT_NEAR(readColorHue(color) * 6, sixths, 1e-9);
        EXPECT_EQ(HSV(readColorHue(color), readColorSaturation(color), readColorValue(color)), color);
    }
}

struct WellProbe final : Window {
    static WellProbe& Instance() { return ImplicitInstance<WellProbe>("WellProbe.WellProbe"); }
    void CreateControls() override {
        AddControl<GroupBox>("group", 0, 0, 100, 100, 0);
        auto& inGroup = AddControl<SmartColorWell>("well", 10, 20, 32, 32, 1);
        inGroup.InitialParent("group");
        inGroup.ColorSelected = kColor;
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
    void PressAt(QPoint at, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::mousePress(&widget, Qt::LeftButton, held, at);
    }
    void MoveTo(QPointF at) { Mouse(QEvent::MouseMove, widget, at, Qt::NoButton, Qt::LeftButton); }
    void ReleaseAt(QPointF at) { Mouse(QEvent::MouseButtonRelease, widget, at); }

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

/// Places that show the parts of the look, and how red it is there: raised, pressed. True: the swatch.
const std::tuple<QPoint, int, int, bool> kParts[] = {
    {{0, 16}, 128, 71, false}, {{3, 31}, 128, 71, false},   {{1, 16}, 217, 105, false}, {{3, 1}, 252, 140, false},
    {{3, 2}, 237, 125, false}, {{28, 30}, 242, 130, false}, {{3, 6}, 230, 117, false},  {{28, 25}, 255, 143, false},
    {{26, 16}, 45, 11, true},  {{25, 16}, 52, 19, true},    {{16, 25}, 60, 26, true},   {{16, 6}, 52, 19, true},
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

TEST_F(ColorWellTest, ThePressedLookFollowsThePointerAReleaseInsidePicksAndItFadesWhenItCantBeUsed) {
    ExpectLook(widget, Look::Raised);
    PressAt({16, 16});
    ExpectLook(widget, Look::Pressed);
    MoveTo({32, 16});
    ExpectLook(widget, Look::Raised);
    MoveTo({0, 0});
    ExpectLook(widget, Look::Pressed);
    MoveTo({0, -0.1});
    ExpectLook(widget, Look::Raised);
    ReleaseAt({0, -0.1});
    EXPECT_THAT(host.calls, testing::IsEmpty());
    PressAt({16, 16});
    ReleaseAt({31, 31});
    EXPECT_THAT(host.calls, ElementsAre(kPicked));
    EXPECT_EQ(ups, 2);

    window.Find<GroupBox>("group").Enabled(false);
    ExpectLook(widget, Look::PaleAroundSwatch);
    window.Find<GroupBox>("group").Enabled(true);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(Eventually([this] { return !widget.isActiveWindow(); }));
    ExpectLook(widget, Look::Pale);
    host.picking = [this] { ExpectLook(widget, Look::Raised); };
    well.pickColor();
}

TEST_F(ColorWellTest, APressOnTheSwatchWithAKeyHeldDragsTheColour) {
    const std::tuple<QPoint, QPoint, Qt::KeyboardModifiers, bool> rows[] = {
        {{16, 16}, {0, 9}, Qt::NoModifier, false},       {{16, 16}, {0, 9}, Qt::AltModifier, true},
        {{16, 16}, {0, -4}, Qt::ShiftModifier, true},    {{16, 16}, {4, 0}, Qt::ControlModifier, true},
        {{16, 16}, {3, -3}, Qt::ControlModifier, false}, {{4, 4}, {9, 9}, Qt::AltModifier, false},
        {{27, 27}, {0, -9}, Qt::AltModifier, true},  // the swatch counts a pixel more
    };
    for (const auto& [from, by, held, isDragged] : rows) {
        SCOPED_TRACE(testing::Message() << from.x() << ": " << by.x() << ", " << by.y());
        host.calls.clear();
        ups = 0;
        PressAt(from, held);
        MoveTo(from + by);
        if (!isDragged) ReleaseAt(from);  // a drag takes the release
        EXPECT_THAT(host.calls, ElementsAre(isDragged ? "DragText #3C96C8" : kPicked));
        EXPECT_EQ(ups, 1);
    }
    ExpectLook(widget, Look::Raised);
}

TEST_F(ColorWellTest, DroppedTextsBecomeColours) {
    EXPECT_EQ(Drop("00fF0a"), "#00FF0A");
    EXPECT_EQ(Drop("#7fffffff and more"), "#FFFFFF");
    EXPECT_EQ(Drop("#050aFF"), "#050AFF");
    Drop("050aff");
    EXPECT_EQ(changes.size(), 3U) << "the present colour, written differently, is no change";
    well.ColorSelected = kColor;
    EXPECT_EQ(Drop("050aff"), "#3C96C8") << "the same text is taken once";
    well.setColor(RGB(1, 2, 3));
    EXPECT_EQ(Drop("050aff"), "#050AFF") << "unless the colour has come from elsewhere in between";
    host.pickedColor = well.getColor();
    changes.clear();
    well.pickColor();
    EXPECT_THAT(changes, ElementsAre(RGB(5, 10, 255))) << "confirmed, though it is the same";
}

class PrefsTest : public TimerWindowTest {
  protected:
    ~PrefsTest() override { End(Dialog()); }

    static winPrefs& Dialog() { return winPrefs::Instance(); }
    static SmartColorWell& Well(const char* role) { return Dialog().Find<SmartColorWell>(role); }
    static std::vector<Color> Clock() {
        return {Timer().Color_Window_Background, Timer().Color_Clock_Wedge, Timer().Color_Clock_Face,
                Timer().Color_Clock_Frame};
    }
    static std::vector<Color> Wells() {
        return {Well("cBackground").getColor(), Well("cWedge").getColor(), Well("cFace").getColor(),
                Well("cFrame").getColor()};
    }
};

TEST_F(PrefsTest, EachWellIsLiveOnItsRoleAndCancelPutsBackWhatWasThere) {
    const auto areDefaults = ElementsAre(RGB(0x9F, 0x9F, 0x9F), RGB(0xFF, 0, 0), RGB(0xFF, 0xFF, 0xFF), RGB(0, 0, 0));
    Timer().Color_Clock_Frame = Color{7};
    const std::vector<Color> before = Clock();
    Dialog().ShowWithin(Timer(), -1);
    EXPECT_FALSE(WidgetNamed("bOK").window()->windowFlags() & Qt::WindowMinMaxButtonsHint);
    EXPECT_EQ(Wells(), before);
    host.pickedColor = Color{10};
    for (const char* well : {"cBackground", "cWedge", "cFace", "cFrame"}) {
        Well(well).pickColor();
        ++host.pickedColor->value;
    }
    EXPECT_THAT(Clock(), ElementsAre(Color{10}, Color{11}, Color{12}, Color{13}));
    WidgetNamed<QPushButton>("bDefaults").click();
    EXPECT_THAT(Clock(), areDefaults);
    EXPECT_THAT(Wells(), areDefaults);
    Press(*WidgetNamed("bOK").window(), Qt::Key_Escape, "");
    EXPECT_EQ(Clock(), before);
    Dialog().ShowWithin(Timer(), -1);
    Press(*WidgetNamed("bOK").window(), Qt::Key_Return, "");
    EXPECT_THROW(WidgetNamed("bOK"), std::out_of_range) << "Return presses OK";
}

}  // namespace
