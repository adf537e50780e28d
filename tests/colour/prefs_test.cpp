#include "colour/winPrefs.h"

#include <gmock/gmock.h>

#include <QtWidgets/QPushButton>

#include "colour/SmartColorWell.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

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
    static void PressAndSeeItClose(Qt::Key key) {
        QWidget& window = *WidgetNamed("bOK").window();
        Press(window, key, "");
        EXPECT_FALSE(window.isVisible());
    }
};

TEST_F(PrefsTest, EachWellIsLiveOnItsRoleAndCancelPutsBackWhatOkLeft) {
    const auto areDefaults = ElementsAre(RGB(0x9F, 0x9F, 0x9F), RGB(0xFF, 0, 0), RGB(0xFF, 0xFF, 0xFF), RGB(0, 0, 0));
    Timer();
    Dialog().ShowWithin(Timer(), -1);
    EXPECT_THAT(Wells(), areDefaults);
    host.pickedColor = Color{10};
    for (const char* well : {"cBackground", "cWedge", "cFace", "cFrame"}) {
        Well(well).pickColor();
        ++host.pickedColor->value;
    }
    const auto arePicked = ElementsAre(Color{10}, Color{11}, Color{12}, Color{13});
    EXPECT_THAT(Clock(), arePicked);
    PressAndSeeItClose(Qt::Key_Return);
    EXPECT_THAT(Clock(), arePicked);

    Dialog().ShowWithin(Timer(), -1);
    EXPECT_THAT(Wells(), arePicked);
    WidgetNamed<QPushButton>("bDefaults").click();
    EXPECT_THAT(Clock(), areDefaults);
    EXPECT_THAT(Wells(), areDefaults);
    PressAndSeeItClose(Qt::Key_Escape);
    EXPECT_THAT(Clock(), arePicked);
}

}  // namespace
