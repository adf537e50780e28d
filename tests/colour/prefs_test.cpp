#include "colour/winPrefs.h"

#include <gmock/gmock.h>

#include <QtWidgets/QPushButton>

#include "colour/SmartColorWell.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

/// In the order of kColourSettings.
constexpr const char* kWells[] = {"cBackground", "cWedge", "cFace", "cFrame"};

class PrefsTest : public TimerWindowTest {
  protected:
    PrefsTest() {
        for (Int32 i = 0; i < 4; ++i)
            Timer().*kColourSettings[i].colour = RGB(i, i, i);
    }
    ~PrefsTest() override { End(Dialog()); }

    static winPrefs& Dialog() { return winPrefs::Instance(); }
    static std::vector<Color> Clock() {
        std::vector<Color> colours;
        for (const auto& [key, colour] : kColourSettings)
            colours.push_back(Timer().*colour);
        return colours;
    }
    static std::vector<Color> Wells() {
        std::vector<Color> colours;
        for (const char* name : kWells)
            colours.push_back(Dialog().Find<SmartColorWell>(name).getColor());
        return colours;
    }
    static void PressAndSeeItClose(Qt::Key key) {
        QWidget& window = *WidgetNamed("bOK").window();
        Press(window, key, "");
        EXPECT_FALSE(window.isVisible());
    }
};

TEST_F(PrefsTest, EachWellIsLiveOnItsRoleAndCancelPutsBackWhatOkLeft) {
    Dialog().ShowWithin(Timer(), -1);
    EXPECT_THAT(Wells(), ElementsAre(RGB(0, 0, 0), RGB(1, 1, 1), RGB(2, 2, 2), RGB(3, 3, 3)));
    host.pickedColor = Color{10};
    for (const char* well : kWells) {
        Dialog().Find<SmartColorWell>(well).pickColor();
        ++host.pickedColor->value;
    }
    const auto arePicked = ElementsAre(Color{10}, Color{11}, Color{12}, Color{13});
    EXPECT_THAT(Clock(), arePicked);
    PressAndSeeItClose(Qt::Key_Return);
    EXPECT_THAT(Clock(), arePicked);

    Dialog().ShowWithin(Timer(), -1);
    EXPECT_THAT(Wells(), arePicked);
    WidgetNamed<QPushButton>("bDefaults").click();
    const auto areDefaults = ElementsAre(RGB(0x9F, 0x9F, 0x9F), RGB(0xFF, 0, 0), RGB(0xFF, 0xFF, 0xFF), RGB(0, 0, 0));
    EXPECT_THAT(Clock(), areDefaults);
    EXPECT_THAT(Wells(), areDefaults);
    PressAndSeeItClose(Qt::Key_Escape);
    EXPECT_THAT(Clock(), arePicked);
}

}  // namespace
