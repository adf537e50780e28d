#include "shell/winSet.h"

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
#include <string>

#include "platform/Controls.h"
#include "platform/Text.h"
#include "platform/qt/RectControlPeer.h"
#include "tests/support/TimerWindowTest.h"

namespace {

constexpr Int32 kHighest = std::numeric_limits<Int32>::max();
constexpr Int32 kLowest = std::numeric_limits<Int32>::min();

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
        ASSERT_TRUE(Eventually([] { return HasFocus("eMin"); }));
    }

    static QLineEdit& Field(const std::string& name) { return WidgetOf<QLineEdit>(Dialog().Find<EditField>(name)); }
    static bool HasFocus(const std::string& name) { return QApplication::focusWidget() == &Field(name); }
    static void Put(const std::string& minutes, const std::string& seconds) {
        Field("eMin").setText(QString::fromStdString(minutes));
        Field("eSec").setText(QString::fromStdString(seconds));
    }
    static std::string Fields() { return (Field("eMin").text() + ":" + Field("eSec").text()).toStdString(); }

    /// Puts a text with its caret, "1|2", or selection, "[12]", into a field and gives it the focus.
    static void Put(QLineEdit& field, const std::string& picture) {
        const QString marked = QString::fromStdString(picture);
        const auto caret = static_cast<int>(marked.indexOf('|'));
        const auto start = static_cast<int>(marked.indexOf('['));
        field.setFocus();
        field.setText(QString(marked).remove('|').remove('[').remove(']'));
        if (caret >= 0) field.setCursorPosition(caret);
        if (start >= 0) field.setSelection(start, static_cast<int>(marked.indexOf(']')) - start - 1);
    }

    /// Types characters; control codes stand for the keys that they come from.
    static void Type(QWidget& widget, const std::string& characters) {
        const std::pair<char32_t, int> controls[] = {
            {'\r', Qt::Key_Return},    {3, Qt::Key_Enter},    {27, Qt::Key_Escape}, {'\t', Qt::Key_Tab},
            {'\b', Qt::Key_Backspace}, {127, Qt::Key_Delete}, {28, Qt::Key_Left},   {29, Qt::Key_Right}};
        for (const char32_t character : QString::fromStdString(characters).toStdU32String()) {
            int key = QChar::toUpper(character) & 0xFFFF;
            for (const auto& [code, control] : controls) {
                if (code == character) key = control;
            }
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString::fromUcs4(&character, 1));
            QCoreApplication::sendEvent(&widget, &event);
        }
    }

    static void Mouse(QEvent::Type type, const std::string& arrows, bool up) {
        auto& widget = WidgetOf<QWidget>(Dialog().Find<UpDownArrows>(arrows));
        const QPointF at(widget.width() / 2.0, up ? 3 : widget.height() - 3);
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
    static void Click(const std::string& arrows, bool up) {
        Mouse(QEvent::MouseButtonPress, arrows, up);
        Mouse(QEvent::MouseButtonRelease, arrows, up);
    }
    static void Push(const std::string& button) { WidgetOf<QPushButton>(Dialog().Find<PushButton>(button)).click(); }

    static bool Eventually(const std::function<bool()>& holds) {
        for (const QDeadlineTimer deadline(20'000); !holds() && !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return holds();
    }

    /// Runs the blocking command as a menu would, with `meanwhile` once the dialog is up.
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
    for (const auto& [minutes, seconds, fields] :
         {std::tuple(0, 0, "00:00"), {5, 7, "05:07"}, {60, 30, "60:30"}, {999, 0, "999:00"}, {-1, 0, "-01:00"}}) {
        Timer().SetMinutes = minutes;
        Timer().SetSeconds = seconds;
        Timer().CurrentSeconds = 42;
        Open();
        EXPECT_EQ(Fields(), fields);
        EXPECT_EQ(Field("eMin").selectedText(), Field("eMin").text());
        EXPECT_FALSE(Field("eMin").isReadOnly() || Field("eSec").isReadOnly());
    }
}

TEST_F(SetTimerTest, ArrowsCarryAndStop) {
    struct Row {
        const char* minutes;
        const char* seconds;
        const char* arrows;
        bool up;
        const char* after;
    };
    const Row rows[] = {
        {"59", "30", "aMin", true, "60:00"},
        {"60", "00", "aMin", true, "60:00"},
        {"60", "30", "aMin", true, "60:00"},
        {"00", "30", "aMin", true, "01:30"},
        {"01", "30", "aMin", false, "00:30"},
        {"00", "30", "aMin", false, "00:00"},
        {"60", "30", "aMin", false, "59:30"},
        {"05", "59", "aSec", true, "06:00"},
        {"59", "59", "aSec", true, "60:00"},
        {"60", "00", "aSec", true, "60:00"},
        {"60", "30", "aSec", true, "60:00"},
        {"05", "00", "aSec", false, "04:59"},
        {"60", "00", "aSec", false, "59:59"},
        {"60", "30", "aSec", false, "60:29"},
        {"00", "00", "aSec", false, "00:00"},
        // What only pasting can bring.
        {"abc", "", "aMin", true, "01:"},
        {"", "abc", "aSec", true, "00:01"},
        {"999", "30", "aMin", true, "60:00"},
        {"999", "30", "aMin", false, "998:30"},
        {"-5", "30", "aMin", false, "00:00"},
        {"91", "99", "aSec", true, "91:00"},
        {"05", "99", "aSec", true, "06:00"},
        {"2147483647", "0", "aMin", true, "60:00"},
        {"-2147483648", "0", "aMin", false, "00:00"},
        {"00", "2147483647", "aSec", true, "01:00"},
        {"00", "-2147483648", "aSec", false, "00:00"},
        {"1e999", "00", "aMin", true, "60:00"},
    };
    Open();
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.minutes) + ":" + row.seconds + " " + row.arrows);
        Field("eMin").setFocus();
        Put(row.minutes, row.seconds);
        const bool isAtStop = row.arrows == std::string("aSec") && row.up && Val(row.minutes) >= 60;
        Click(row.arrows, row.up);
        EXPECT_EQ(Fields(), row.after);
        EXPECT_TRUE(HasFocus(row.arrows == std::string("aSec") && !isAtStop ? "eSec" : "eMin"));
    }
}

TEST_F(SetTimerTest, KeysInTheMinutes) {
    struct Row {
        const char* before;
        const char* seconds;
        const char* keys;
        const char* after;
    };
    const Row rows[] = {
        {"[00]", "30", "45", "45:30"},
        {"|", "30", "7", "7:30"},
        {"6|", "30", "1", "6:30"},
        {"00|", "30", "5", "005:30"},
        {"05|", "30", "8", "058:30"},
        {"45|", "30", "7", "45:30"},
        // The digit is judged at the end and inserted at the caret.
        {"|1", "30", "9", "91:30"},
        {"|1", "30", "6", "61:30"},
        {"|9", "30", "1", "9:30"},
        // A selection is replaced, or only dropped when the digit is refused.
        {"[4]5", "30", "5", "55:30"},
        {"[6]7", "30", "1", "67:30"},
        // Past the bound: what completes 60 leaves the seconds alone, the next digit clears them.
        {"[00]", "30", "60", "60:30"},
        {"60|", "30", "0", "60:00"},
        {"[60]", "30", "6", "6:30"},
        {"060|", "30", "5", "060:30"},
        // Every other character of plain ASCII is swallowed, and none beyond it.
        {"5|", "30", " !/:;@AZ[`az{~.,+-eEh&", "5:30"},
        {"[5]", "30", "x", "5:30"},
        {"5|", "30", "é", "5é:30"},
        {"12|", "30", "\b", "1:30"},
        {"|12", "30", "\x7f", "2:30"},
        {"12|", "30", "\x1c\x1c\x1d\b", "2:30"},
        {"60|", "30", "\b", "6:30"},
        {"999|", "30", "1", "999:30"},
        {"-1|", "30", "5", "-1:30"},
        {"99999999999999999999|", "30", "9", "99999999999999999999:30"},
    };
    Open();
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.before) + " " + row.keys);
        Field("eSec").setText(row.seconds);
        Put(Field("eMin"), row.before);
        Type(Field("eMin"), row.keys);
        EXPECT_EQ(Fields(), row.after);
        EXPECT_FALSE(Field("eMin").hasSelectedText() && *row.keys == '1');
    }
}

TEST_F(SetTimerTest, KeysInTheSeconds) {
    struct Row {
        const char* minutes;
        const char* before;
        const char* keys;
        const char* after;
    };
    const Row rows[] = {
        {"05", "[00]", "59", "05:59"},
        {"05", "6|", "0", "05:6"},
        {"05", "5|", "95", "05:59"},
        {"05", "|1", "9", "05:91"},
        {"05", "5|", "x", "05:5"},
        {"05", "05|", "8", "05:058"},
        {"05", "12|", "\b", "05:1"},
        {"61", "[00]", "5", "61:5"},
        {"060", "[00]", "5", "060:5"},
        // While the minutes read 60, no key comes through, not even the way out.
        {"60", "30|", "5", "60:00"},
        {"60", "30|", "x", "60:00"},
        {"60", "30|", "\b", "60:00"},
        {"60", "|30", "\x7f", "60:00"},
        {"60", "30|", "\t", "60:00"},
        {"60", "30|", "\r", "60:00"},
        {"60", "30|", "\x1b", "60:00"},
        {"60", "30|", "é", "60:00"},
    };
    Open();
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.minutes) + ":" + row.before + " " + row.keys);
        Put(Field("eSec"), row.before);
        Field("eMin").setText(row.minutes);
        Type(Field("eSec"), row.keys);
        EXPECT_EQ(Fields(), row.after);
        EXPECT_TRUE(HasFocus("eSec"));
    }
    EXPECT_TRUE(Dialog().Visible());
}

TEST_F(SetTimerTest, AKeyHeldAsACommandTypesNothing) {
    Open();
    for (const auto held : {Qt::AltModifier, Qt::MetaModifier, Qt::ControlModifier}) {
        for (const char* character : {"7", "x"}) {
            Put(Field("eMin"), "55|");
            QKeyEvent event(QEvent::KeyPress, QChar(*character).toUpper().unicode(), held, character);
            QCoreApplication::sendEvent(&Field("eMin"), &event);
            EXPECT_EQ(Fields(), "55:00") << character << " with " << held;
        }
    }
}

TEST_F(SetTimerTest, AFieldThatLosesTheFocusShowsTwoDigits) {
    Open();
    for (const auto& [before, after] : {std::pair("", "00"),
                                        {"7", "07"},
                                        {"058", "58"},
                                        {"abc", "00"},
                                        {"999", "999"},
                                        {"5é", "05"},
                                        {"99999999999999999999", "100000000000000000000"}}) {
        Put(before, before);
        Field("eMin").setFocus();
        Type(Field("eMin"), "\t");
        EXPECT_TRUE(HasFocus("eSec"));
        EXPECT_EQ(Fields(), std::string(after) + ":" + before);
        Field("eMin").setFocus();
        EXPECT_EQ(Fields(), std::string(after) + ":" + after);
    }
}

TEST_F(SetTimerTest, SetTakesWhatTheFieldsHold) {
    struct Row {
        const char* minutes;
        const char* seconds;
        Int32 setMinutes, setSeconds, currentSeconds;
    };
    const Row rows[] = {
        {"07", "05", 7, 5, 425},
        {"7", "007", 7, 7, 427},
        {"00", "00", 0, 0, 0},
        {"60", "30", 60, 30, 3630},
        {"91", "", 91, 0, 5460},
        {"999", "abc", 999, 0, 59940},
        {"-1", "5", -1, 5, -55},
        {"99999999999999999999", "59", kHighest, 59, kHighest},
        {"35791394", "99999999999", 35791394, kHighest, kHighest},
        {"-99999999999", "-1", kLowest, -1, kLowest},
        {"1e999", "0", kHighest, 0, kHighest},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.minutes);
        Open();
        Put(row.minutes, row.seconds);
        Push("btnOK");
        EXPECT_EQ(Timer().SetMinutes, row.setMinutes);
        EXPECT_EQ(Timer().SetSeconds, row.setSeconds);
        EXPECT_EQ(Timer().CurrentSeconds, row.currentSeconds);
        EXPECT_FALSE(Timer().IsRunning);
        EXPECT_EQ(Timer().StartSeconds, 0);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        QCoreApplication::processEvents();  // the clock paints it
    }
    EXPECT_THAT(host.messages, testing::IsEmpty());
}

TEST_F(SetTimerTest, OnlySetAndReturnChangeTheTimer) {
    struct Row {
        const char* name;
        std::function<void()> act;
        bool closes, sets;
    };
    const Row rows[] = {
        {"Set", [] { Push("btnOK"); }, true, true},
        {"Return", [] { Type(Field("eMin"), "\r"); }, true, true},
        {"Enter", [] { Type(Field("eSec"), "\x03"); }, true, true},
        {"Escape", [] { Type(Field("eMin"), "\x1b"); }, false, false},
        {"Cancel", [] { Push("btnCancel"); }, true, false},
        {"Return on Cancel", [] { Type(WidgetOf<QPushButton>(Dialog().Find<PushButton>("btnCancel")), "\r"); }, true,
         false},
        {"close button", [] { Field("eMin").window()->close(); }, true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Timer().SetMinutes = Timer().SetSeconds = Timer().CurrentSeconds = 1;
        Open();
        Put("12", "34");
        QWidget* const window = Field("eMin").window();
        row.act();
        EXPECT_EQ(window->isVisible(), !row.closes);
        EXPECT_EQ(Timer().SetMinutes, row.sets ? 12 : 1);
        EXPECT_EQ(Timer().SetSeconds, row.sets ? 34 : 1);
        EXPECT_EQ(Timer().CurrentSeconds, row.sets ? 754 : 1);
    }
}

TEST_F(SetTimerTest, HeldArrowsRepeatUntilTheyAreReleased) {
    Open();
    Put("10", "10");
    Mouse(QEvent::MouseButtonPress, "aMin", false);
    EXPECT_EQ(Fields(), "09:10");
    EXPECT_TRUE(Eventually([] { return Val(Field("eMin").text().toStdString()) <= 6; }));
    Mouse(QEvent::MouseButtonRelease, "aMin", false);
    const QString released = Field("eMin").text();
    Mouse(QEvent::MouseButtonPress, "aSec", true);  // takes as long as an arrow that were still held
    EXPECT_TRUE(Eventually([] { return Val(Field("eSec").text().toStdString()) >= 14; }));
    EXPECT_EQ(Field("eMin").text(), released);
}

TEST_F(SetTimerTest, TheCommandWaitsBesideFullscreen) {
    for (const bool fullscreen : {false, true}) {
        Timer().Left(100);
        Timer().Top(60);
        Timer().Width(501);
        Timer().Height(300);
        if (fullscreen) Timer()._ViewToggleFullscreen_Action();
        Command([] {
            EXPECT_EQ(Dialog().Top(), Timer().Top() + 30);
            EXPECT_EQ(Dialog().Left(), Timer().Left() + (Timer().Width() - 300) / 2);
            EXPECT_FALSE(Timer().FullScreen());
            Put("01", "00");
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
