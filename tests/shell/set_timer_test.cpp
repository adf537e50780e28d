#include <gmock/gmock.h>

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <limits>

#include "platform/Controls.h"
#include "shell/winSet.h"
#include "tests/support/TimerWindowTest.h"

namespace {

class SetTimerTest : public TimerWindowTest {
  protected:
    SetTimerTest() { Open(); }
    ~SetTimerTest() override { End(Dialog()); }

    static winSet& Dialog() { return winSet::Instance(); }
    static void Open() {
        Dialog().ShowWithin(Timer(), -1);
        EXPECT_TRUE(Eventually([] { return Field("eMin").hasFocus(); }));
    }
    static QLineEdit& Field(const char* name) { return WidgetNamed<QLineEdit>(name); }
    /// What the fields show, as "05:30".
    static QString Shown() { return Field("eMin").text() + ":" + Field("eSec").text(); }
    static void Put(const QString& time) {
        Field("eMin").setText(time.section(':', 0, 0));
        Field("eSec").setText(time.section(':', 1));
    }
};

TEST_F(SetTimerTest, ArrowsCarryAndStop) {
    struct Row {
        const char* before;
        const char* arrows;
        bool isUp;
        const char* after;
    };
    const Row rows[] = {
        {"00:30", "aMin", true, "01:30"},
        {"59:30", "aMin", true, "60:00"},
        {"60:30", "aMin", true, "60:00"},
        {"00:30", "aMin", false, "00:00"},
        {"59:59", "aSec", true, "60:00"},
        {"60:30", "aSec", true, "60:00"},
        {"05:00", "aSec", false, "04:59"},
        {"00:00", "aSec", false, "00:00"},
        // What only pasting can bring.
        {"abc:", "aMin", true, "01:"},
        {"999:30", "aMin", false, "998:30"},
        {"2147483647:0", "aMin", true, "60:00"},
        {"0:-2147483648", "aSec", false, "00:00"},
    };
    for (const auto& [before, arrows, isUp, after] : rows) {
        SCOPED_TRACE(before);
        Field("eMin").setFocus();
        Put(before);
        auto& pressed = Dialog().Find<UpDownArrows>(arrows);
        (isUp ? pressed.Up : pressed.Down)();
        EXPECT_EQ(Shown(), after);
        const bool isAtStop = isUp && before == std::string("60:30");
        EXPECT_TRUE(Field(arrows[1] == 'M' || isAtStop ? "eMin" : "eSec").hasFocus());
    }
}

TEST_F(SetTimerTest, KeysAreJudgedBeforeTheFieldGetsThem) {
    constexpr int kSelected = -1;
    struct Row {
        const char* before;
        const char* field;
        int caret;
        const char* keys;
        const char* after;
    };
    const Row rows[] = {
        {"00:30", "eMin", kSelected, "45", "45:30"},
        // The digit is judged at the end and inserted at the caret; a refused one leaves the text.
        {"1:30", "eMin", 0, "9", "91:30"},
        {"9:30", "eMin", 0, "1", "9:30"},
        {"67:30", "eMin", kSelected, "6", "6:30"},
        // What completes 60 leaves the seconds alone; the next digit clears them.
        {"00:30", "eMin", kSelected, "60", "60:30"},
        {"60:30", "eMin", 2, "0", "60:00"},
        // Every other character of plain ASCII is swallowed, but no key that types nothing.
        {"5:30", "eMin", kSelected, "!/:~.,+-e", "5:30"},
        {"05:00", "eSec", kSelected, "59", "05:59"},
        {"05:6", "eSec", 1, "0", "05:6"},
        // While the minutes read 60, no key reaches the seconds, not even the one that leads out.
        {"60:30", "eSec", 2, "5", "60:00"},
        {"60:30", "eSec", 2, "\t", "60:00"},
    };
    for (const auto& [before, name, caret, keys, after] : rows) {
        SCOPED_TRACE(testing::Message() << before << " " << keys);
        Put(before);
        QLineEdit& field = Field(name);
        field.setFocus();
        caret == kSelected ? field.selectAll() : field.setCursorPosition(caret);
        QTest::keyClicks(&field, keys);
        EXPECT_EQ(Shown(), after);
        EXPECT_TRUE(field.hasFocus());
    }
}

TEST_F(SetTimerTest, AFieldThatLosesTheFocusShowsTwoDigits) {
    for (const auto& [before, minutesLeft, bothLeft] :
         {std::tuple(":", "00:", "00:00"), {"7:058", "07:058", "07:58"}, {"999:é", "999:é", "999:00"}}) {
        Field("eMin").setFocus();
        Put(before);
        QTest::keyClick(&Field("eMin"), Qt::Key_Tab);
        EXPECT_EQ(Shown(), minutesLeft);
        QTest::keyClick(&Field("eSec"), Qt::Key_Backtab);
        EXPECT_EQ(Shown(), bothLeft);
    }
}

TEST_F(SetTimerTest, SetTakesWhatTheFieldsHoldAndTheNextOpeningShowsIt) {
    constexpr Int32 kLowest = std::numeric_limits<Int32>::min();
    for (const auto& [time, seconds, reopened] :
         {std::tuple("07:5", 425, "07:05"), {"91:", 5460, "91:00"}, {"-99999999999:-1", kLowest, "-2147483648:-01"}}) {
        EXPECT_FALSE(WidgetNamed("cvTime").isEnabled());
        Put(time);
        QTest::keyClick(&Field("eSec"), Qt::Key_Return);
        EXPECT_TRUE(WidgetNamed("cvTime").isEnabled());
        EXPECT_EQ(Timer().CurrentSeconds, seconds);
        EXPECT_FALSE(Timer().IsRunning);
        QCoreApplication::processEvents();  // the clock paints it
        Open();
        EXPECT_EQ(Shown(), reopened);
    }
    Put("12:34");
    WidgetNamed("btnCancel").setFocus();
    QTest::keyClick(&WidgetNamed("btnCancel"), Qt::Key_Return);
    EXPECT_TRUE(WidgetNamed("cvTime").isEnabled());
    EXPECT_EQ(Timer().CurrentSeconds, kLowest);
    EXPECT_THAT(host.messages, testing::IsEmpty());
}

TEST_F(SetTimerTest, AHeldArrowRepeatsUntilItIsReleased) {
    const auto mouse = [](QEvent::Type type, const char* arrows, Qt::MouseButton button = Qt::LeftButton) {
        const QWidget& pair = WidgetNamed(arrows);
        Mouse(type, *pair.childAt(pair.width() / 2, 3), {5, 5}, button);
    };
    mouse(QEvent::MouseButtonPress, "aMin");
    mouse(QEvent::MouseButtonRelease, "aMin", Qt::RightButton);
    EXPECT_TRUE(Eventually([] { return Field("eMin").text().toInt() >= 4; }));
    mouse(QEvent::MouseButtonRelease, "aMin");
    const QString released = Field("eMin").text();
    mouse(QEvent::MouseButtonPress, "aSec");  // its repeats give one that was still held the time for its own
    EXPECT_TRUE(Eventually([] { return Field("eSec").text().toInt() >= 4; }));
    EXPECT_EQ(Field("eMin").text(), released);
}

}  // namespace
