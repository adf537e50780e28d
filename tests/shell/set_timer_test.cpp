#include <gmock/gmock.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <functional>
#include <limits>
#include <map>
#include <string>

#include "platform/Controls.h"
#include "platform/qt/RectControlPeer.h"
#include "shell/winSet.h"
#include "tests/support/TimerWindowTest.h"

namespace {

constexpr Int32 kHighest = std::numeric_limits<Int32>::max();
constexpr Int32 kLowest = std::numeric_limits<Int32>::min();

/// A row "05:30 keys 05:31": what the fields show, what is done, what they show then.
struct Step {
    explicit Step(const std::string& row)
        : before(row, 0, row.find(' ')),
          act(row, before.size() + 1, row.rfind(' ') - before.size() - 1),
          after(row, row.rfind(' ') + 1) {}
    std::string before, act, after;
};

class SetTimerTest : public TimerWindowTest {
  protected:
    ~SetTimerTest() override { CloseDialog(); }

    static winSet& Dialog() { return winSet::Instance(); }
    static void CloseDialog() {
        Dialog().Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static void Open() {
        CloseDialog();
        Dialog().ShowWithin(Timer(), -1);
        ASSERT_TRUE(Eventually([] { return QApplication::focusWidget() == &Minutes(); }));
    }

    template <class Widget, class C>
    static Widget& WidgetNamed(const std::string& name) {
        return WidgetOf<Widget>(Dialog().Find<C>(name));
    }
    static QLineEdit& Minutes() { return WidgetNamed<QLineEdit, EditField>("eMin"); }
    static QLineEdit& Seconds() { return WidgetNamed<QLineEdit, EditField>("eSec"); }

    /// What the fields show, as "05:30".
    static std::string Shown() { return (Minutes().text() + ":" + Seconds().text()).toStdString(); }
    /// Makes them show it. A field with a caret, "5|:30", or a selection, "[05]:30", gets the focus; it is returned.
    static QLineEdit& Put(const std::string& picture) {
        const QStringList parts = QString::fromStdString(picture).split(':');
        QLineEdit& marked = parts[1].contains('|') || parts[1].contains('[') ? Seconds() : Minutes();
        if (picture.find_first_of("|[") != std::string::npos) marked.setFocus();
        for (QLineEdit* field : {&Minutes(), &Seconds()}) {
            QString text = parts[field == &Seconds()];
            const auto caret = static_cast<int>(text.indexOf('|'));
            const auto start = static_cast<int>(text.indexOf('['));
            const auto end = static_cast<int>(text.indexOf(']'));
            field->setText(text.remove('|').remove('[').remove(']'));
            if (caret >= 0) field->setCursorPosition(caret);
            if (start >= 0) field->setSelection(start, end - start - 1);
        }
        return marked;
    }

    /// Types characters; control codes stand for the keys that they come from.
    static void Type(QWidget& widget, const std::string& characters, Qt::KeyboardModifiers held = Qt::NoModifier) {
        static const std::map<char32_t, int> controls = {
            {'\r', Qt::Key_Return},    {3, Qt::Key_Enter},    {27, Qt::Key_Escape}, {'\t', Qt::Key_Tab},
            {'\b', Qt::Key_Backspace}, {127, Qt::Key_Delete}, {28, Qt::Key_Left},   {29, Qt::Key_Right}};
        for (const char32_t character : QString::fromStdString(characters).toStdU32String()) {
            const auto control = controls.find(character);
            const int key = control == controls.end() ? QChar::toUpper(character) & 0xFFFF : control->second;
            QKeyEvent event(QEvent::KeyPress, key, held, QString::fromUcs4(&character, 1));
            QCoreApplication::sendEvent(&widget, &event);
        }
    }

    /// Presses or releases an arrow, named as "aMin+" or "aSec-".
    static void Mouse(QEvent::Type type, const std::string& arrow) {
        auto& widget = WidgetNamed<QWidget, UpDownArrows>(arrow.substr(0, 4));
        const QPointF at(widget.width() / 2.0, arrow.back() == '+' ? 3 : widget.height() - 3);
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
    static void Push(const std::string& button) { WidgetNamed<QPushButton, PushButton>(button).click(); }

    static bool Eventually(const std::function<bool()>& holds) {
        for (const QDeadlineTimer deadline(20'000); !holds() && !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return holds();
    }

    /// Runs the blocking command as a menu would, and `meanwhile` once the dialog is up.
    static void Command(const std::function<void()>& meanwhile) {
        bool hasReturned = false;
        QTimer::singleShot(0, [&] {
            QTimer::singleShot(0, [&] {
                EXPECT_TRUE(Dialog().Visible());
                EXPECT_FALSE(hasReturned);
                meanwhile();
            });
            EXPECT_TRUE(Timer()._TimerSet_Action());
            hasReturned = true;
            QCoreApplication::exit();
        });
        QCoreApplication::exec();
        EXPECT_TRUE(hasReturned);
    }
};

TEST_F(SetTimerTest, OpensWithTheSetTimeSelectedForTyping) {
    for (const auto& [minutes, seconds, shown] :
         {std::tuple(0, 0, "00:00"), {5, 7, "05:07"}, {60, 30, "60:30"}, {999, 0, "999:00"}, {-1, 0, "-01:00"}}) {
        Timer().SetMinutes = minutes;
        Timer().SetSeconds = seconds;
        Timer().CurrentSeconds = 42;
        Open();
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(Minutes().selectedText(), Minutes().text());
    }
}

TEST_F(SetTimerTest, ArrowsCarryAndStop) {
    const char* const steps[] = {
        "59:30 aMin+ 60:00", "60:00 aMin+ 60:00", "60:30 aMin+ 60:00", "00:30 aMin+ 01:30", "01:30 aMin- 00:30",
        "00:30 aMin- 00:00", "60:30 aMin- 59:30", "05:59 aSec+ 06:00", "59:59 aSec+ 60:00", "60:00 aSec+ 60:00",
        "60:30 aSec+ 60:00", "05:00 aSec- 04:59", "60:00 aSec- 59:59", "60:30 aSec- 60:29", "00:00 aSec- 00:00",
        // What only pasting can bring.
        "abc: aMin+ 01:", ":abc aSec+ 00:01", "-5:30 aMin- 00:00", "999:30 aMin+ 60:00", "999:30 aMin- 998:30",
        "91:99 aSec+ 91:00", "05:99 aSec+ 06:00", "2147483647:0 aMin+ 60:00", "-2147483648:0 aMin- 00:00",
        "0:2147483647 aSec+ 01:00", "00:-2147483648 aSec- 00:00", "1e999:00 aMin+ 60:00"};
    Open();
    for (const char* text : steps) {
        SCOPED_TRACE(text);
        const Step step(text);
        Minutes().setFocus();
        Put(step.before);
        const bool isAtStop = Minutes().text().toDouble() >= 60 && step.act == "aSec+";
        Mouse(QEvent::MouseButtonPress, step.act);
        Mouse(QEvent::MouseButtonRelease, step.act);
        EXPECT_EQ(Shown(), step.after);
        EXPECT_EQ(QApplication::focusWidget(), step.act[1] == 'S' && !isAtStop ? &Seconds() : &Minutes());
    }
}

TEST_F(SetTimerTest, KeysAreJudgedBeforeTheFieldGetsThem) {
    const char* const steps[] = {
        "[00]:30 45 45:30", "|:30 7 7:30", "6|:30 1 6:30", "00|:30 5 005:30", "05|:30 8 058:30", "45|:30 7 45:30",
        "999|:30 1 999:30", "-1|:30 5 -1:30", "05:[00] 59 05:59", "05:6| 0 05:6", "05:5| 95 05:59", "05:05| 8 05:058",
        "99999999999999999999|:30 9 99999999999999999999:30",
        // The digit is judged at the end and inserted at the caret.
        "|1:30 9 91:30", "|1:30 6 61:30", "|9:30 1 9:30", "05:|1 9 05:91",
        // A selection is replaced, or only dropped when the digit is refused.
        "[4]5:30 5 55:30", "[6]7:30 1 67:30", "[60]:30 6 6:30",
        // What completes 60 leaves the seconds alone; the next digit clears them.
        "[00]:30 60 60:30", "60|:30 0 60:00", "060|:30 5 060:30",
        // Every other character of plain ASCII is swallowed, and none beyond it.
        "5|:30  !/:;@AZ[`az{~.,+-eEh& 5:30", "[5]:30 x 5:30", "5|:30 é 5é:30", "05:5| x 05:5",
        // Keys that type nothing are the field's.
        "12|:30 \b 1:30", "|12:30 \x7f 2:30", "12|:30 \x1c\x1c\x1d\b 2:30", "60|:30 \b 6:30", "05:12| \b 05:1",
        // While the minutes read 60, no key reaches the seconds, not even the one that leads out.
        "60:30| 5 60:00", "60:30| x 60:00", "60:30| é 60:00", "60:30| \b 60:00", "60:|30 \x7f 60:00", "60:30| \t 60:00",
        "60:30| \r 60:00", "60:30| \x1b 60:00", "61:[00] 5 61:5", "060:[00] 5 060:5"};
    Open();
    for (const char* text : steps) {
        SCOPED_TRACE(text);
        const Step step(text);
        QLineEdit& field = Put(step.before);
        Type(field, step.act);
        EXPECT_EQ(Shown(), step.after);
        EXPECT_EQ(QApplication::focusWidget(), &field);
        EXPECT_FALSE(field.hasSelectedText() && step.act != "x");
    }
    EXPECT_TRUE(Dialog().Visible());
}

TEST_F(SetTimerTest, AKeyHeldAsACommandTypesNothing) {
    Open();
    for (const auto held : {Qt::AltModifier, Qt::MetaModifier, Qt::ControlModifier}) {
        for (const char* key : {"7", "x"}) {
            Type(Put("55|:00"), key, held);
            EXPECT_EQ(Shown(), "55:00") << key << " with " << held;
        }
    }
}

TEST_F(SetTimerTest, AFieldThatLosesTheFocusShowsTwoDigits) {
    Open();
    const std::pair<std::string, std::string> rows[] = {{"", "00"},
                                                        {"7", "07"},
                                                        {"058", "58"},
                                                        {"abc", "00"},
                                                        {"999", "999"},
                                                        {"5é", "05"},
                                                        {"1e20", "100000000000000000000"}};
    for (const auto& [before, after] : rows) {
        Type(Put("|" + before + ":" + before), "\t");
        EXPECT_EQ(QApplication::focusWidget(), &Seconds());
        EXPECT_EQ(Shown(), after + ":" + before);
        Minutes().setFocus();
        EXPECT_EQ(Shown(), after + ":" + after);
    }
}

TEST_F(SetTimerTest, SetTakesWhatTheFieldsHold) {
    struct Row {
        const char* shown;
        Int32 setMinutes, setSeconds, currentSeconds;
    };
    for (const Row& row :
         {Row{"07:05", 7, 5, 425}, Row{"7:007", 7, 7, 427}, Row{"00:00", 0, 0, 0}, Row{"60:30", 60, 30, 3630},
          Row{"91:", 91, 0, 5460}, Row{"999:abc", 999, 0, 59940}, Row{"-1:5", -1, 5, -55},
          Row{"99999999999999999999:59", kHighest, 59, kHighest}, Row{"1e999:0", kHighest, 0, kHighest},
          Row{"35791394:99999999999", 35791394, kHighest, kHighest}, Row{"-99999999999:-1", kLowest, -1, kLowest}}) {
        SCOPED_TRACE(row.shown);
        Open();
        Put(row.shown);
        Push("btnOK");
        EXPECT_EQ(Timer().SetMinutes, row.setMinutes);
        EXPECT_EQ(Timer().SetSeconds, row.setSeconds);
        EXPECT_EQ(Timer().CurrentSeconds, row.currentSeconds);
        EXPECT_EQ(Timer().StartSeconds, 0);
        EXPECT_FALSE(Timer().IsRunning);
        QCoreApplication::processEvents();  // the clock paints it
    }
    EXPECT_THAT(host.messages, testing::IsEmpty());
}

TEST_F(SetTimerTest, OnlySetAndReturnChangeTheTimer) {
    struct Row {
        const char* name;
        bool closes, sets;
        std::function<void()> act;
    };
    for (const Row& row :
         {Row{"Set", true, true, [] { Push("btnOK"); }}, Row{"Return", true, true, [] { Type(Minutes(), "\r"); }},
          Row{"Enter", true, true, [] { Type(Seconds(), "\x03"); }},
          Row{"Escape", false, false, [] { Type(Minutes(), "\x1b"); }},
          Row{"Cancel", true, false, [] { Push("btnCancel"); }},
          Row{"Return on Cancel", true, false, [] { Type(WidgetNamed<QWidget, PushButton>("btnCancel"), "\r"); }},
          Row{"close button", true, false, [] { Minutes().window()->close(); }}}) {
        SCOPED_TRACE(row.name);
        Timer().SetMinutes = Timer().SetSeconds = Timer().CurrentSeconds = 1;
        Open();
        Put("12:34");
        const QWidget* const window = Minutes().window();
        row.act();
        EXPECT_EQ(window->isVisible(), !row.closes);
        EXPECT_EQ(Timer().SetMinutes, row.sets ? 12 : 1);
        EXPECT_EQ(Timer().SetSeconds, row.sets ? 34 : 1);
        EXPECT_EQ(Timer().CurrentSeconds, row.sets ? 754 : 1);
    }
}

TEST_F(SetTimerTest, AHeldArrowRepeatsUntilItIsReleased) {
    Open();
    Put("10:10");
    Mouse(QEvent::MouseButtonPress, "aMin-");
    EXPECT_EQ(Shown(), "09:10");
    EXPECT_TRUE(Eventually([] { return Minutes().text().toInt() <= 6; }));
    Mouse(QEvent::MouseButtonRelease, "aMin-");
    const QString released = Minutes().text();
    Mouse(QEvent::MouseButtonPress, "aSec+");  // its repeats give one that was still held the time for its own
    EXPECT_TRUE(Eventually([] { return Seconds().text().toInt() >= 14; }));
    EXPECT_EQ(Minutes().text(), released);
}

TEST_F(SetTimerTest, TheCommandWaitsBesideFullscreen) {
    for (const bool fullscreen : {false, true}) {
        Timer().Left(100);
        Timer().Top(60);
        Timer().Width(501);
        if (fullscreen) Timer()._ViewToggleFullscreen_Action();
        Command([] {
            EXPECT_EQ(Dialog().Top(), Timer().Top() + 30);
            EXPECT_EQ(Dialog().Left(), Timer().Left() + (Timer().Width() - 300) / 2);
            EXPECT_FALSE(Timer().FullScreen());
            Put("01:00");
            Push("btnOK");
        });
        EXPECT_EQ(Timer().CurrentSeconds, 60);
        EXPECT_EQ(Timer().FullScreen(), fullscreen);
        EXPECT_EQ(Timer().MenuBarVisible(), !fullscreen);
    }
}

TEST_F(SetTimerTest, TheProgramCanEndBehindTheDialog) {
    Timer()._ViewToggleFullscreen_Action();
    Command([] { Timer().Close(); });
}

}  // namespace
