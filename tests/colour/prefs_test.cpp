#include "colour/winPrefs.h"

#include <gmock/gmock.h>

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "colour/SmartColorWell.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

const auto kBefore = ElementsAre(RGB(1, 2, 3), RGB(4, 5, 6), RGB(7, 8, 9), RGB(0, 0, 0));

class PrefsTest : public TimerWindowTest {
  protected:
    PrefsTest() {
        Timer().Color_Window_Background = RGB(1, 2, 3);
        Timer().Color_Clock_Wedge = RGB(4, 5, 6);
        Timer().Color_Clock_Face = RGB(7, 8, 9);
        Timer().Color_Clock_Frame = RGB(0, 0, 0);
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
};

TEST_F(PrefsTest, EachWellIsLiveOnItsRoleAndCancelPutsAllBack) {
    EXPECT_THAT(Wells(), kBefore);
    for (const auto& [well, label, colour] : {std::tuple("cBackground", "StaticText1", Color{10}),
                                              {"cWedge", "StaticText3", Color{11}},
                                              {"cFace", "StaticText2", Color{12}},
                                              {"cFrame", "StaticText6", Color{13}}}) {
        host.pickedColor = colour;
        Dialog().Find<SmartColorWell>(well).pickColor();
        EXPECT_EQ(WidgetNamed<QLabel>(label).buddy(), &WidgetNamed(well));
    }
    EXPECT_THAT(Clock(), ElementsAre(Color{10}, Color{11}, Color{12}, Color{13}));
    WidgetNamed<QPushButton>("bDefaults").click();
    const auto areDefaults = ElementsAre(RGB(0x9F, 0x9F, 0x9F), RGB(0xFF, 0, 0), RGB(0xFF, 0xFF, 0xFF), RGB(0, 0, 0));
    EXPECT_THAT(Clock(), areDefaults);
    EXPECT_THAT(Wells(), areDefaults);
    CloseBy(Qt::Key_Escape);
    EXPECT_THAT(Clock(), kBefore);
}

TEST_F(PrefsTest, OkLeavesWhatShowsToTheNextOpening) {
    Dialog().Find<SmartColorWell>("cWedge").setColor(RGB(10, 200, 30));
    const auto chosen = Clock();
    EXPECT_EQ(chosen[1], RGB(10, 200, 30));
    CloseBy(Qt::Key_Return);
    EXPECT_EQ(Wells(), chosen);
    EXPECT_EQ(Dialog().mWedge, chosen[1]);
}

}  // namespace
