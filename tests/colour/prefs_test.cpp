#include "colour/winPrefs.h"

#include <gmock/gmock.h>

#include <QtWidgets/QPushButton>

#include "colour/SmartColorWell.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

const Color kBackground = RGB(1, 2, 3), kWedge = RGB(4, 5, 6), kFace = RGB(7, 8, 9), kFrame = RGB(0, 0, 0);
const Color kPicked = RGB(10, 200, 30);

class PrefsTest : public TimerWindowTest {
  protected:
    PrefsTest() {
        Timer().Color_Window_Background = kBackground;
        Timer().Color_Clock_Wedge = kWedge;
        Timer().Color_Clock_Face = kFace;
        Timer().Color_Clock_Frame = kFrame;
        Dialog().ShowWithin(Timer(), -1);
    }
    ~PrefsTest() override { End(Dialog()); }

    static winPrefs& Dialog() { return winPrefs::Instance(); }
    static std::vector<Color> Clock() {
        return {Timer().Color_Window_Background, Timer().Color_Clock_Wedge, Timer().Color_Clock_Face,
                Timer().Color_Clock_Frame};
    }
    static std::vector<Color> Wells() {
        std::vector<Color> colours;
        for (const char* name : {"cBackground", "cWedge", "cFace", "cFrame"})
            colours.push_back(Dialog().Find<SmartColorWell>(name).getColor());
        return colours;
    }
    static void CloseBy(Qt::Key key) {
        QWidget& window = *WidgetNamed("bOK").window();
        Press(window, key, "");
        EXPECT_FALSE(window.isVisible());
    }
    void Pick(const char* well, Color color) {
        host.pickedColor = color;
        Dialog().Find<SmartColorWell>(well).pickColor();
    }
};

TEST_F(PrefsTest, ShowsTheClocksColoursAndOkLeavesThem) {
    EXPECT_THAT(Wells(), ElementsAre(kBackground, kWedge, kFace, kFrame));
    CloseBy(Qt::Key_Return);
    EXPECT_THAT(Clock(), ElementsAre(kBackground, kWedge, kFace, kFrame));
}

TEST_F(PrefsTest, EachWellIsLiveOnItsRoleAndCancelPutsAllBack) {
    Pick("cBackground", RGB(11, 0, 0));
    Pick("cWedge", RGB(12, 0, 0));
    Pick("cFace", RGB(13, 0, 0));
    Pick("cFrame", RGB(14, 0, 0));
    EXPECT_THAT(Clock(), ElementsAre(RGB(11, 0, 0), RGB(12, 0, 0), RGB(13, 0, 0), RGB(14, 0, 0)));
    CloseBy(Qt::Key_Escape);
    EXPECT_THAT(Clock(), ElementsAre(kBackground, kWedge, kFace, kFrame));
}

TEST_F(PrefsTest, DefaultsShowAtOnceAndCancelGoesBackToTheOpening) {
    Pick("cFace", kPicked);
    WidgetNamed<QPushButton>("bDefaults").click();
    const auto areDefaults = ElementsAre(RGB(0x9F, 0x9F, 0x9F), RGB(0xFF, 0, 0), RGB(0xFF, 0xFF, 0xFF), RGB(0, 0, 0));
    EXPECT_THAT(Clock(), areDefaults);
    EXPECT_THAT(Wells(), areDefaults);
    CloseBy(Qt::Key_Escape);
    EXPECT_THAT(Clock(), ElementsAre(kBackground, kWedge, kFace, kFrame));
}

TEST_F(PrefsTest, EachOpeningIsAnew) {
    Pick("cWedge", kPicked);
    End(Dialog());
    EXPECT_EQ(Dialog().mWedge, kPicked);
    EXPECT_EQ(Wells()[1], kPicked);
}

}  // namespace
