#include <QtGui/QTextBlock>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTextEdit>
#include <algorithm>

#include "platform/StyledTextField.h"
#include "platform/Text.h"
#include "shell/help_text.h"
#include "shell/markup.h"
#include "shell/winHelp.h"
#include "tests/support/TimerWindowTest.h"

namespace {

TEST(HelpTextTest, IsCompleteAndWellFormed) {
    EXPECT_EQ(kHelpText.size(), 5371u);
    const StyledText guide = ParseMarkup(kHelpText, 12);
    EXPECT_EQ(guide.front(), (StyleRun{"Dwindledial - Help", {true, false, 14}}));
    EXPECT_EQ(guide.back().style, (TextStyle{false, false, 12}));
    for (std::size_t i = 1; i < guide.size(); ++i)
        EXPECT_EQ(guide[i].style.size, 12) << guide[i].text;
}

class HelpTest : public TimerWindowTest {
  protected:
    HelpTest() { Open(); }
    ~HelpTest() override { End(winHelp::Instance()); }

    static void Open() {
        Timer()._HelpHelp_Action();
        Eventually([] { return Field().hasFocus(); });
    }
    static QTextEdit& Field() { return WidgetNamed<QTextEdit>("EditField1"); }
    static QFont FontOfLine(int number) {
        QTextCursor cursor(Field().document()->findBlockByNumber(number));
        cursor.movePosition(QTextCursor::NextCharacter);
        return QFont(cursor.charFormat().font());
    }
    static void ExpectStyles() {
        EXPECT_TRUE(FontOfLine(0).bold() && FontOfLine(0).pixelSize() == 14);
        EXPECT_TRUE(FontOfLine(14).bold() && FontOfLine(14).italic() && FontOfLine(14).pixelSize() == 12);
        EXPECT_FALSE(FontOfLine(15).bold() || FontOfLine(15).italic());
    }
};

TEST_F(HelpTest, ShowsTheGuideFromItsFirstLine) {
    const std::string text = winHelp::Instance().Find<StyledTextField>("EditField1").Text();
    EXPECT_EQ(text.substr(0, 28), "Dwindledial - Help\r\rContents");
    EXPECT_EQ(text.find_first_of("<>"), text.npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 64);
    EXPECT_EQ(Field().verticalScrollBar()->value(), 0);
    EXPECT_FALSE(Field().textCursor().hasSelection());
    ExpectStyles();
}

TEST_F(HelpTest, KeysScrollSelectAndCopyButChangeNothing) {
    const QString text = Field().toPlainText();
    for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_X, Qt::Key_Return})
        Press(Field(), key, "x");
    Press(Field(), Qt::Key_V, "", Qt::ControlModifier);
    EXPECT_EQ(Field().toPlainText(), text);
    const auto place = [] { return Field().verticalScrollBar()->value(); };
    EXPECT_EQ(place(), 0);
    for (const auto& [onward, back] :
         {std::pair(Qt::Key_Down, Qt::Key_Up), {Qt::Key_PageDown, Qt::Key_PageUp}, {Qt::Key_End, Qt::Key_Home}}) {
        Press(Field(), onward, "");
        EXPECT_GT(place(), 0) << onward;
        Press(Field(), back, "");
        EXPECT_EQ(place(), 0) << back;
    }
    Press(Field(), Qt::Key_A, "", Qt::ControlModifier);
    Press(Field(), Qt::Key_C, "", Qt::ControlModifier);
    QTextEdit target;
    target.paste();
    EXPECT_EQ(target.toPlainText(), text);
}

TEST_F(HelpTest, TheTextFollowsTheWindow) {
    const int longer = Field().verticalScrollBar()->maximum();
    winHelp::Instance().Width(700);
    winHelp::Instance().Height(300);
    EXPECT_EQ(Field().geometry(), QRect(-1, -1, 702, 302));
    EXPECT_LT(Field().verticalScrollBar()->maximum(), longer);
    EXPECT_EQ(Field().horizontalScrollBar()->maximum(), 0);
    ExpectStyles();
}

TEST_F(HelpTest, OneWindowLastsUntilItIsClosed) {
    const Window* const first = &winHelp::Instance();
    Press(Field(), Qt::Key_End, "");
    const int end = Field().verticalScrollBar()->value();
    Timer()._HelpHelp_Action();
    EXPECT_EQ(&winHelp::Instance(), first);
    EXPECT_EQ(Field().verticalScrollBar()->value(), end);
    Press(Field(), Qt::Key_Escape, "\x1b");
    EXPECT_FALSE(first->Visible());
    Open();
    EXPECT_EQ(Field().verticalScrollBar()->value(), 0);
}

}  // namespace
