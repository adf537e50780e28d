#include <gmock/gmock.h>

#include <QtWidgets/QLabel>
#include <QtWidgets/QTextEdit>

#include "platform/Controls.h"
#include "platform/StyledTextField.h"
#include "shell/AboutWindow.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

class AboutTest : public TimerWindowTest {
  protected:
    ~AboutTest() override { End(AboutWindow::Instance()); }

    static AboutWindow& Open(bool useCredits) {
        AboutWindow::Instance().Show(useCredits);
        Eventually([] { return QApplication::activeWindow(); });
        return AboutWindow::Instance();
    }
    static void ExpectLayout(bool hasCredits, QRect copyright, QRect badge, QSize window) {
        EXPECT_EQ(WidgetNamed("EditAppCredits").isVisible(), hasCredits);
        EXPECT_EQ(WidgetNamed("StatAppCopyright").geometry(), copyright);
        EXPECT_EQ(WidgetNamed("RBIconCanvas").geometry(), badge);
        const QWidget& peer = *WidgetNamed("RBIconCanvas").window();
        EXPECT_EQ(peer.size(), window);
        EXPECT_EQ(peer.minimumSize(), peer.maximumSize()) << "the user can change its size";
    }
    static void ExpectWithCredits() {
        ExpectLayout(true, {20, 280, 244, 32}, {34, 324, 216, 30}, {284, 366});
        EXPECT_EQ(WidgetNamed("EditAppCredits").geometry(), QRect(0, 132, 284, 140));
    }
    static void ExpectWithout() { ExpectLayout(false, {20, 132, 244, 32}, {34, 176, 216, 30}, {284, 218}); }

    static std::string Credits() { return AboutWindow::Instance().Find<StyledTextField>("EditAppCredits").Text(); }
    static QTextEdit& Field() { return WidgetNamed<QTextEdit>("EditAppCredits"); }
};

TEST_F(AboutTest, HasTwoLayoutsThatFollowEachOther) {
    for (const bool hasCredits : {true, true, false, false, true}) {
        Open(hasCredits);
        hasCredits ? ExpectWithCredits() : ExpectWithout();
    }
    End(AboutWindow::Instance());
    Open(false);
    ExpectWithout();
    Open(true);
    ExpectWithCredits();
}

TEST_F(AboutTest, TellsWhatTheProgramIsAndWhoseItIs) {
    Open(true);
    for (const auto& [name, size] : {std::pair("StatAppName", 14), {"StatAppVersion", 10}, {"StatAppCopyright", 10}})
        EXPECT_EQ(WidgetNamed(name).font().pixelSize(), size) << name << " doesn't fit";
    EXPECT_EQ(WidgetNamed<QLabel>("StatAppName").text(), "Dwindledial");
    EXPECT_EQ(WidgetNamed<QLabel>("StatAppVersion").text(), "Version 1.0.0 (1)");
    EXPECT_EQ(WidgetNamed<QLabel>("StatAppCopyright").text().count('\n'), 1);
    EXPECT_THAT(Credits(), testing::MatchesRegex("Author:\r      Tolvar Quennick\r      author@example.org\r"
                                                 "      http://www.example.org\r\rDisclaimer:\r[^a-z\r<>]{100,}"));
}

TEST_F(AboutTest, AFurtherCommandFillsTheOpenWindowAnew) {
    Timer()._HelpAbout_Action();
    auto& window = AboutWindow::Instance();
    const std::string credits = Credits();
    window.SetCreditsFieldText("<b>1 < 2</b>", false);
    EXPECT_EQ(Credits(), "<b>1 < 2</b>");
    EXPECT_FALSE(Field().textCursor().charFormat().font().bold()) << "what showed before has left its style";
    Timer()._HelpAbout_Action();
    EXPECT_EQ(&AboutWindow::Instance(), &window);
    EXPECT_EQ(Credits(), credits);
    EXPECT_TRUE(Field().textCursor().atStart());
    EXPECT_TRUE(Field().currentFont().bold());
    Field().moveCursor(QTextCursor::End);
    EXPECT_EQ(Field().currentFont().pixelSize(), 10);
}

TEST_F(AboutTest, TheVersionTellsItsStage) {
    App& app = App::Instance();
    app.MajorVersion(1), app.MinorVersion(2), app.BugVersion(3), app.NonReleaseVersion(45);
    for (const auto& [stage, version] : {std::pair(0, "1.2.3 (Dev. 45)"),
                                         {1, "1.2.3a (45)"},
                                         {2, "1.2.3b (45)"},
                                         {3, "1.2.3 (45)"},
                                         {4, "1.2.3"},
                                         {-1, "1.2.3"}}) {
        app.StageCode(stage);
        EXPECT_EQ(AboutWindow::VersionString(), version);
    }
}

TEST_F(AboutTest, TheBadgeLeadsToTheToolkitAndEscapeOutOfTheWindow) {
    Open(true);
    host.calls.clear();
    QWidget& badge = WidgetNamed("RBIconCanvas");
    Mouse(QEvent::MouseButtonPress, badge, {0, 0});
    Mouse(QEvent::MouseButtonPress, badge, {215, 29});
    EXPECT_THAT(host.calls, ElementsAre("ShowURL https://www.qt.io", "ShowURL https://www.qt.io"));
    EXPECT_TRUE(AboutWindow::Instance().Visible());
    Press(*badge.window(), Qt::Key_Escape, "\x1b");
    EXPECT_FALSE(AboutWindow::Instance().UseCredits) << "a window filled before is still open";
}

TEST_F(AboutTest, ThePicturesAreTransparent) {
    Open(true);
    for (const char* name : {"AppIconCanvas", "RBIconCanvas"}) {
        SCOPED_TRACE(name);
        QWidget& canvas = WidgetNamed(name);
        const auto pixels = [&](const QColor& ground) {
            QPalette colors;
            colors.setColor(QPalette::Window, ground);
            canvas.window()->setPalette(colors);
            return canvas.window()->grab(QRect(canvas.pos(), canvas.size())).toImage();
        };
        for (int paint = 0; paint < 2; ++paint) {  // the mask is drawn anew each time
            const QImage onGreen = pixels(Qt::green), onBlue = pixels(Qt::blue);
            EXPECT_EQ(onGreen.pixelColor(0, 0), QColor(Qt::green));
            EXPECT_EQ(onBlue.pixelColor(0, 0), QColor(Qt::blue));
            EXPECT_EQ(onGreen.pixelColor(canvas.rect().center()), onBlue.pixelColor(canvas.rect().center()));
            EXPECT_NE(onBlue.pixelColor(canvas.rect().center()), QColor(Qt::blue));
        }
    }
}

}  // namespace
