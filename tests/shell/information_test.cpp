#include <QtGui/QScreen>
#include <QtGui/QTextBlock>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTextEdit>
#include <cstdlib>

#include "platform/qt/drawing/Surfaces.h"
#include "shell/AboutWindow.h"
#include "shell/InformationWindow.h"
#include "shell/resources.h"
#include "shell/winHelp.h"
#include "tests/support/TimerWindowTest.h"

// The program's images, the two windows that tell of it, and the mark-up of their texts.

namespace fs = std::filesystem;

namespace {

/// Whether the test under way passes in another process, too.
bool PassesIn(const std::string& command) {
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    return std::system((command + " --gtest_filter=*." + test).c_str()) == 0;
}

// The process for the dense screen runs this test alone, so there no other has loaded the icons before.
TEST(ImagesTest, IconsAreTransparentFromTheirFirstUseAndFinerOnADenseScreen) {
    for (auto* const icon : {Run_Icon, Pause_Icon, Alert_Icon}) {
        const QImage seen = WithMask(*icon());
        EXPECT_EQ(seen.deviceIndependentSize(), QSize(17, 17));
        EXPECT_EQ(seen.width(), 17 * qApp->devicePixelRatio());
        for (const QPoint corner : {seen.rect().topLeft(), seen.rect().bottomRight()})
            EXPECT_EQ(seen.pixelColor(corner).alpha(), 0);
        EXPECT_EQ(seen.pixelColor(seen.rect().center()).alpha(), 255);
    }
    const Ref<Picture> dark = NewPicture(40, 40, 32, 1.25);
    dark->Graphics()->FillRect(0, 0, 40, 40);
    dark->Graphics()->DrawPicture(Run_Icon(), 10, 10, kOwnSize, kOwnSize, 0, 0, kOwnSize, kOwnSize);
    EXPECT_EQ(WithMask(*dark).pixel(12, 22), 0xFF000000);
    EXPECT_EQ(WithMask(*dark).pixel(13, 22), 0xFFFFFFFF) << "it lies on whole pixels";
    const std::string self = Application::ExecutableFile()->Path();
    EXPECT_TRUE(qApp->devicePixelRatio() > 1 || PassesIn("QT_SCALE_FACTOR=2 " + self));
}

// Both are sought from the executable's place, so a copy of this one is run where they are missing.
TEST(ImagesTest, WithoutImagesNothingIsDrawnAndWithoutTheModuleThereAreNoMovies) {
    const fs::path executable = Application::ExecutableFile()->Path();
    RecordingHost& host = RecordingHost::InstallNew();
    if (executable.filename() != "copy") {
        const fs::path copy = host.preferencesFolder / "copy";
        fs::copy_file(executable, copy);
        EXPECT_TRUE(PassesIn(copy.string()));
        return;
    }
    EXPECT_FALSE(Run_Icon() || AboutIcon() || MwRbHzMd());
    NewPicture(40, 40, 32)->Graphics()->DrawPicture(Run_Icon(), 0, 0);
    EXPECT_TRUE(winMain::Instance()._FileCreateMovie_Action());
    EXPECT_EQ(host.messages, std::vector<std::string>{"QuickTime needs to be installed to create movies."});
}

// Whole, damaged and hostile ones.
TEST(ImagesTest, AnyFileIsAPictureOfABearableSizeOrNil) {
    for (const auto& entry : fs::directory_iterator(PICTURES)) {
        SCOPED_TRACE(entry.path());
        const std::string name = entry.path().filename();
        const Ref<Picture> picture = FolderItem(entry.path()).OpenAsPicture();
        EXPECT_TRUE(picture || name == "lowest_height.bmp" || name.ends_with(".pict"));
        if (!picture) continue;
        EXPECT_LE(picture->Bits().size(), std::size_t{4096} * 4096);
        EXPECT_TRUE(name != "cut_top_down.bmp" || picture->Bits().back() == 0xFFFFFFFF) << "what it lacks is white";
    }
}

class InformationTest : public TimerWindowTest {
  protected:
    ~InformationTest() override {
        End(AboutWindow::Instance());
        End(winHelp::Instance());
    }
    static QFont FontOfLine(const QTextEdit& field, int number) {
        QTextCursor cursor(field.document()->findBlockByNumber(number));
        cursor.movePosition(QTextCursor::NextCharacter);
        return cursor.charFormat().font();
    }
};

TEST_F(InformationTest, TheGuideShowsFromItsFirstLineAndCanOnlyBeRead) {
    Timer()._HelpHelp_Action();
    auto& guide = WidgetNamed<QTextEdit>("EditField1");
    const QString text = guide.toPlainText();
    EXPECT_TRUE(text.startsWith("Dwindledial - Help\n\nContents") && !text.contains('<'));
    const QFont title = FontOfLine(guide, 0), heading = FontOfLine(guide, 14), line = FontOfLine(guide, 15);
    EXPECT_TRUE(title.bold() && title.pixelSize() == 14);
    EXPECT_TRUE(heading.bold() && heading.italic() && heading.pixelSize() == 12);
    EXPECT_FALSE(line.bold() || line.italic() || line.pixelSize() != 12);
    Press(guide, Qt::Key_X, "x");
    EXPECT_EQ(guide.toPlainText(), text);
    QScrollBar& bar = *guide.verticalScrollBar();
    Press(guide, Qt::Key_PageDown, "");
    guide.window()->showMinimized();
    Timer()._HelpHelp_Action();
    EXPECT_FALSE(guide.window()->isMinimized());
    EXPECT_GT(bar.value(), 0) << "the window that is open comes forward as it is";
    winHelp::Instance().Width(700);
    winHelp::Instance().Height(300);
    EXPECT_EQ(guide.geometry(), QRect(-1, -1, 702, 302));
    Press(guide, Qt::Key_Escape, "\x1b");
    EXPECT_FALSE(guide.isVisible());
}

TEST_F(InformationTest, AboutTellsWhatTheProgramIsWithItsCreditsOrWithout) {
    for (const bool hasCredits : {true, false, true}) {
        AboutWindow::Instance().Show(hasCredits);
        const QRect badge = WidgetNamed("RBIconCanvas").geometry();
        EXPECT_EQ(WidgetNamed("EditAppCredits").isVisible(), hasCredits);
        EXPECT_GT(badge.top(), WidgetNamed("StatAppCopyright").geometry().bottom());
        EXPECT_EQ(WidgetNamed("RBIconCanvas").window()->maximumSize(), QSize(284, badge.bottom() + 13));
    }
    EXPECT_EQ(WidgetNamed<QLabel>("StatAppName").text(), "Dwindledial");
    EXPECT_EQ(WidgetNamed<QLabel>("StatAppVersion").text(), "Version 1.0.0 (1)");
    for (const auto& [label, size] : {std::pair("StatAppName", 14), {"StatAppVersion", 10}, {"StatAppCopyright", 10}})
        EXPECT_EQ(WidgetNamed(label).font().pixelSize(), size) << "it doesn't fit";
    auto& credits = WidgetNamed<QTextEdit>("EditAppCredits");
    const QString text = credits.toPlainText();
    EXPECT_THAT(text.toStdString(), testing::MatchesRegex("Author:\n      Tolvar Quennick\n      author@example.org\n"
                                                          "      http://www.example.org\n\nDisclaimer:\n[^a-z\n<]+"));
    Timer()._HelpAbout_Action();
    EXPECT_TRUE(FontOfLine(credits, 0).bold());
    EXPECT_EQ(FontOfLine(credits, 6).pixelSize(), 10);
}

TEST_F(InformationTest, AboutsPicturesAreTransparentAndItsBadgeLeadsToTheToolkit) {
    AboutWindow::Instance().Show(false);
    QWidget& badge = WidgetNamed("RBIconCanvas");
    EXPECT_NEAR(badge.window()->geometry().center().x(), badge.screen()->availableGeometry().center().x(), 1);
    badge.window()->setPalette(Qt::green);
    for (const char* name : {"AppIconCanvas", "RBIconCanvas"}) {
        const QWidget& canvas = WidgetNamed(name);
        const QImage seen = badge.window()->grab(canvas.geometry()).toImage();
        EXPECT_EQ(seen.pixelColor(0, 0), badge.palette().color(QPalette::Window)) << name;
        EXPECT_NE(seen.pixelColor(canvas.rect().center()), seen.pixelColor(0, 0)) << name;
    }
    host.calls.clear();
    Mouse(QEvent::MouseButtonPress, badge, {215, 29});
    EXPECT_THAT(host.calls, testing::ElementsAre("ShowURL https://www.qt.io"));
}

TEST(MarkupTest, EachTagAppliesToAllThatFollows) {
    const TextStyle plain{false, false, 12}, bold{true, false, 12}, italic{false, true, 12}, both{true, true, 12},
        large{false, false, 14}, none{false, false, 0};
    const std::pair<const char*, StyledText> rows[] = {
        {"<b><font size=\"14\">Title</font></b>\rText", {{"Title", {true, false, 14}}, {"\rText", plain}}},
        {"a<i>b<b>c</i>d</b>e", {{"a", plain}, {"b", italic}, {"c", both}, {"d", bold}, {"e", plain}}},
        {"<font size=\"14\">a<font size=\"10\">b</font>c</font>d",
         {{"a", large}, {"b", {false, false, 10}}, {"cd", large}}},
        {"<font size=10>b", {{"b", none}}},
        {"a<u>b</u>c<>d<B>e<bold>f< b>g<b one two>h", {{"abcdefg", plain}, {"h", bold}}},
        // A tag that is never closed is text.
        {"> <b>a<i", {{"> ", plain}, {"a<i", bold}}},
    };
    for (const auto& [markup, runs] : rows)
        EXPECT_EQ(ParseMarkup(markup, 12), runs) << markup;
}

}  // namespace
