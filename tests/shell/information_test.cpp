#include <gmock/gmock.h>

#include <QtGui/QTextBlock>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTextEdit>

#include "shell/AboutWindow.h"
#include "shell/winHelp.h"
#include "tests/support/TimerWindowTest.h"

// The two windows that tell of the program.

namespace {

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

    for (const auto key : {Qt::Key_Delete, Qt::Key_X, Qt::Key_Return})
        Press(guide, key, "x");
    EXPECT_EQ(guide.toPlainText(), text);
    QScrollBar& bar = *guide.verticalScrollBar();
    EXPECT_EQ(bar.value(), 0);
    Press(guide, Qt::Key_PageDown, "");
    Timer()._HelpHelp_Action();
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
    AboutWindow::Instance().SetCreditsFieldText("<b>1 < 2</b>", false);
    EXPECT_EQ(credits.toPlainText(), "<b>1 < 2</b>");
    EXPECT_FALSE(FontOfLine(credits, 0).bold()) << "what showed before has left its style";
    Timer()._HelpAbout_Action();
    EXPECT_EQ(credits.toPlainText(), text);
    EXPECT_TRUE(FontOfLine(credits, 0).bold());
    EXPECT_EQ(FontOfLine(credits, 6).pixelSize(), 10);
}

TEST_F(InformationTest, AboutsPicturesAreTransparentAndItsBadgeLeadsToTheToolkit) {
    AboutWindow::Instance().Show(false);
    QWidget& badge = WidgetNamed("RBIconCanvas");
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
    Press(*badge.window(), Qt::Key_A, "a");
    EXPECT_TRUE(badge.isVisible());
    Press(*badge.window(), Qt::Key_Escape, "\x1b");
    EXPECT_FALSE(badge.isVisible());
}

}  // namespace
