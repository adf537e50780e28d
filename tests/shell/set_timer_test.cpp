#include <gmock/gmock.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <limits>
#include <map>
#include <string>

#include "platform/Text.h"
#include "shell/winSet.h"
#include "tests/support/TimerWindowTest.h"

namespace {

constexpr Int32 kHighest = std::numeric_limits<Int32>::max();
constexpr Int32 kLowest = std::numeric_limits<Int32>::min();

class SetTimerTest : public TimerWindowTest {
  protected:
    ~SetTimerTest() override { End(Dialog()); }

    static winSet& Dialog() { return winSet::Instance(); }
    static void Open() {
        End(Dialog());
        Dialog().ShowWithin(Timer(), -1);
        ASSERT_TRUE(Eventually([] { return QApplication::focusWidget() == &Minutes(); }));
    }
    static QLineEdit& Minutes() { return WidgetNamed<QLineEdit>("eMin"); }
    static QLineEdit& Seconds() { return WidgetNamed<QLineEdit>("eSec"); }

    /// What the fields show, as "05:30".
    static QString Shown() { return Minutes().text() + ":" + Seconds().text(); }
    /// Makes them show it. The field with a caret, "5|:30", or a selection, "[05]:30", gets the focus, else the
    /// minutes.
    static QLineEdit& Put(const QString& picture) {
        static const QRegularExpression marks("[][|]");
        const QStringList parts = picture.split(':');
        QLineEdit& focused = parts[1].contains(marks) ? Seconds() : Minutes();
        focused.setFocus();
        for (QLineEdit* field : {&Minutes(), &Seconds()})
            field->setText(QString(parts[field == &Seconds()]).remove(marks));
        const QString& text = parts[&focused == &Seconds()];
        const auto start = static_cast<int>(text.indexOf('[')), end = static_cast<int>(text.indexOf(']'));
        if (text.contains('|')) focused.setCursorPosition(static_cast<int>(text.indexOf('|')));
        if (start >= 0) focused.setSelection(start, end - start - 1);
        return focused;
    }

    /// Types characters; control codes stand for the keys that they come from.
    static void Type(QWidget& widget, const QString& characters) {
        static const std::map<QChar, int> controls = {
            {'\r', Qt::Key_Return},   {'\x1b', Qt::Key_Escape}, {'\t', Qt::Key_Tab},    {'\b', Qt::Key_Backspace},
            {'\x7f', Qt::Key_Delete}, {'\x1c', Qt::Key_Left},   {'\x1d', Qt::Key_Right}};
        for (const QChar character : characters) {
            const auto control = controls.find(character);
            Press(widget, control == controls.end() ? character.toUpper().unicode() : control->second, character);
        }
    }

    /// Presses or releases an arrow, named as "aMin+" or "aSec-".
    static void Arrow(QEvent::Type type, const QString& arrow, Qt::MouseButton button = Qt::LeftButton) {
        QWidget& pair = WidgetNamed(arrow.first(4).toLatin1());
        Mouse(type, *pair.childAt(pair.width() / 2, arrow.back() == '+' ? 3 : pair.height() - 3), {5, 5}, button);
    }
};

TEST_F(SetTimerTest, ArrowsCarryAndStop) {
    Open();
    // What the fields show, the arrow, what they show then.
    for (const char* row :
         {"59:30 aMin+ 60:00", "60:00 aMin+ 60:00", "60:30 aMin+ 60:00", "00:30 aMin+ 01:30", "01:30 aMin- 00:30",
          "00:30 aMin- 00:00", "60:30 aMin- 59:30", "05:59 aSec+ 06:00", "59:59 aSec+ 60:00", "60:00 aSec+ 60:00",
          "60:30 aSec+ 60:00", "05:00 aSec- 04:59", "60:00 aSec- 59:59", "60:30 aSec- 60:29", "00:00 aSec- 00:00",
          // What only pasting can bring.
          "abc: aMin+ 01:", ":abc aSec+ 00:01", "-5:30 aMin- 00:00", "999:30 aMin- 998:30", "91:99 aSec+ 91:00",
          "05:99 aSec+ 06:00", "2147483647:0 aMin+ 60:00", "-2147483648:0 aMin- 00:00", "0:2147483647 aSec+ 01:00",
          "00:-2147483648 aSec- 00:00"}) {
        SCOPED_TRACE(row);
        const QStringList step = QString(row).split(' ');
        Put(step[0]);
        const bool isAtStop = Minutes().text().toDouble() >= 60 && step[1] == "aSec+";
        Arrow(QEvent::MouseButtonPress, step[1]);
        Arrow(QEvent::MouseButtonRelease, step[1]);
        EXPECT_EQ(Shown(), step[2]);
        EXPECT_EQ(QApplication::focusWidget(), step[1][1] == 'S' && !isAtStop ? &Seconds() : &Minutes());
    }
}

TEST_F(SetTimerTest, KeysAreJudgedBeforeTheFieldGetsThem) {
    Open();
    // What the fields show, the keys, what they show then.
    for (const char* text :
         {"[00]:30 45 45:30", "6|:30 1 6:30", "00|:30 5 005:30", "45|:30 7 45:30", "-1|:30 5 -1:30", "05:[00] 59 05:59",
          "05:6| 0 05:6", "05:05| 8 05:058", "99999999999999999999|:30 9 99999999999999999999:30",
          // The digit is judged at the end and inserted at the caret.
          "|1:30 9 91:30", "|9:30 1 9:30", "05:|1 9 05:91",
          // A selection is replaced, or only dropped when the digit is refused.
          "[4]5:30 5 55:30", "[6]7:30 1 67:30", "[60]:30 6 6:30",
          // What completes 60 leaves the seconds alone; the next digit clears them.
          "[00]:30 60 60:30", "60|:30 0 60:00", "060|:30 5 060:30",
          // Every other character of plain ASCII is swallowed, and none beyond it.
          "5|:30 !/:;@AZ[`az{~.,+-eEh& 5:30", "[5]:30 x 5:30", "5|:30 é 5é:30", "05:5| x 05:5",
          // Keys that type nothing are the field's.
          "12|:30 \b 1:30", "|12:30 \x7f 2:30", "12|:30 \x1c\x1c\x1d\b 2:30", "60|:30 \b 6:30", "05:12| \b 05:1",
          // While the minutes read 60, no key reaches the seconds, not even the one that leads out.
          "60:30| 5 60:00", "60:30| é 60:00", "60:30| \b 60:00", "60:30| \t 60:00", "60:30| \r 60:00", "61:[00] 5 61:5",
          "060:[00] 5 060:5"}) {
        SCOPED_TRACE(text);
        const QStringList step = QString(text).split(' ');
        QLineEdit& field = Put(step[0]);
        Type(field, step[1]);
        EXPECT_EQ(Shown(), step[2]);
        EXPECT_EQ(QApplication::focusWidget(), &field);
        EXPECT_EQ(field.hasSelectedText(), text[0] == '[' && step[1] == "x");
    }
    EXPECT_TRUE(Dialog().Visible());
}

TEST_F(SetTimerTest, AFieldThatLosesTheFocusShowsTwoDigits) {
    Open();
    for (const auto& [before, after] :
         {std::pair("", "00"), {"7", "07"}, {"058", "58"}, {"999", "999"}, {"5é", "05"}}) {
        Type(Put(QString("|%1:%1").arg(before)), "\t");
        EXPECT_EQ(Shown(), QString("%1:%2").arg(after, before));
        EXPECT_EQ(QApplication::focusWidget(), &Seconds());
        Minutes().setFocus();
        EXPECT_EQ(Shown(), QString("%1:%1").arg(after));
    }
}

TEST_F(SetTimerTest, SetTakesWhatTheFieldsHold) {
    struct Row {
        const char* shown;
        Int32 minutes, seconds, current;
    };
    for (const Row& row :
         {Row{"07:05", 7, 5, 425}, Row{"60:30", 60, 30, 3630}, Row{"91:", 91, 0, 5460}, Row{"-1:5", -1, 5, -55},
          Row{"1e999:59", kHighest, 59, kHighest}, Row{"-99999999999:-1", kLowest, -1, kLowest}}) {
        SCOPED_TRACE(row.shown);
        Open();
        EXPECT_EQ(Minutes().selectedText(), QString::fromStdString(Format(Timer().SetMinutes, "00")));
        Put(row.shown);
        WidgetNamed<QPushButton>("btnOK").click();
        EXPECT_EQ(std::tuple(Timer().SetMinutes, Timer().SetSeconds, Timer().CurrentSeconds),
                  std::tuple(row.minutes, row.seconds, row.current));
        EXPECT_FALSE(Timer().IsRunning);
        QCoreApplication::processEvents();  // the clock paints it
    }
    EXPECT_THAT(host.messages, testing::IsEmpty());
}

TEST_F(SetTimerTest, ReturnOnTheCancelButtonSetsNothing) {
    Open();
    Put("12:34");
    const QWidget* const window = Minutes().window();
    Type(WidgetNamed("btnCancel"), "\r");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Timer().CurrentSeconds, 0);
}

TEST_F(SetTimerTest, AHeldArrowRepeatsUntilItIsReleased) {
    Open();
    Put("10:10");
    Arrow(QEvent::MouseButtonPress, "aMin-");
    EXPECT_EQ(Shown(), "09:10");
    Arrow(QEvent::MouseButtonRelease, "aMin-", Qt::RightButton);
    EXPECT_TRUE(Eventually([] { return Minutes().text().toInt() <= 6; }));
    Arrow(QEvent::MouseButtonRelease, "aMin-");
    const QString released = Minutes().text();
    Arrow(QEvent::MouseButtonPress, "aSec+");  // its repeats give one that was still held the time for its own
    EXPECT_TRUE(Eventually([] { return Seconds().text().toInt() >= 14; }));
    EXPECT_EQ(Minutes().text(), released);
}

TEST_F(SetTimerTest, TheProgramCanEndBehindTheDialogThatItWaitsFor) {
    Timer()._ViewToggleFullscreen_Action();
    bool hasReturned = false;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] {
            EXPECT_TRUE(Dialog().Visible() && !Timer().FullScreen() && !hasReturned);
            Timer().Close();
        });
        hasReturned = Timer()._TimerSet_Action();
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    EXPECT_TRUE(hasReturned);
}

}  // namespace
