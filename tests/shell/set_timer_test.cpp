#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

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
    static QWidget& Arrow(const char* pair, bool isUp) {
        const QWidget& arrows = WidgetNamed(pair);
        return *arrows.childAt(arrows.width() / 2, isUp ? 3 : arrows.height() - 3);
    }
    /// What the fields show, as "05:30".
    static QString Shown() { return Field("eMin").text() + ":" + Field("eSec").text(); }
    /// Enters a text as an on-screen keyboard does.
    static void Commit(QLineEdit& field, const char* text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(&field, &event);
    }
    static void Put(const QString& time) {
        Field("eMin").setText(time.section(':', 0, 0));
        Field("eSec").setText(time.section(':', 1));
    }
};

TEST_F(SetTimerTest, ArrowsCarryAndStop) {
    const std::tuple<const char*, const char*, bool, const char*, const char*> rows[] = {
        {"59:30", "aMin", true, "60:00", "eMin"},
        {"00:30", "aMin", false, "00:00", "eMin"},
        {"59:59", "aSec", true, "60:00", "eSec"},
        {"60:30", "aSec", true, "60:00", "eMin"},
        {"05:01", "aSec", false, "05:00", "eSec"},
        {"05:00", "aSec", false, "04:59", "eSec"},
        {"00:00", "aSec", false, "00:00", "eSec"},
        // What only pasting can bring.
        {"abc:", "aMin", true, "01:", "eMin"},
        {"2147483647:0", "aMin", true, "60:00", "eMin"},
    };
    for (const auto& [before, arrows, isUp, after, focused] : rows) {
        SCOPED_TRACE(before);
        Field("eMin").setFocus();
        Put(before);
        QTest::mouseClick(&Arrow(arrows, isUp), Qt::LeftButton);
        EXPECT_EQ(Shown(), after);
        EXPECT_TRUE(Field(focused).hasFocus());
    }
    QTest::mousePress(&Arrow("aMin", true), Qt::LeftButton);
    EXPECT_TRUE(Eventually([] { return Field("eMin").text().toInt() >= 3; })) << "a held arrow repeats";
}

TEST_F(SetTimerTest, KeysAreJudgedBeforeTheFieldGetsThem) {
    constexpr int kSelected = -1;
    const std::tuple<const char*, const char*, int, const char*, const char*> rows[] = {
        // The digit is judged at the end and inserted at the caret; a refused one leaves the text.
        {"1:30", "eMin", 0, "9", "91:30"},
        {"9:30", "eMin", 0, "1", "9:30"},
        // What completes 60 leaves the seconds alone; the next digit clears them.
        {"00:30", "eMin", kSelected, "60", "60:30"},
        {"60:30", "eMin", 2, "0", "60:00"},
        // Every other character of plain ASCII is swallowed, but no key that types nothing.
        {"5:30", "eMin", kSelected, "!/:~.,+-e", "5:30"},
        {"05:00", "eSec", kSelected, "59", "05:59"},
        // While the minutes read 60, no key reaches the seconds, not even the one that leads out.
        {"60:30", "eSec", 2, "5\t", "60:00"},
    };
    for (const auto& [before, name, caret, keys, after] : rows) {
        for (const bool isOnScreenKeyboard : {false, true}) {
            SCOPED_TRACE(testing::Message() << before << " " << keys << " " << isOnScreenKeyboard);
            Put(before);
            QLineEdit& field = Field(name);
            field.setFocus();
            caret == kSelected ? field.selectAll() : field.setCursorPosition(caret);
            isOnScreenKeyboard ? Commit(field, keys) : QTest::keyClicks(&field, keys);
            EXPECT_EQ(Shown(), after);
        }
    }
}

TEST_F(SetTimerTest, ATextThatIsTooLongIsShownFromItsBeginningUntilTheCaretMoves) {
    const auto put = [](const char* text) {
        Dialog().Find<EditField>("eMin").Text(text);
        return Field("eMin").grab().toImage();
    };
    EXPECT_EQ(put("0.0166666"), put("0.0166667"));
    EXPECT_NE(put("0.0166666"), put("9.0166666"));
    for (const auto key : {Qt::Key_End, Qt::Key_Left, Qt::Key_0}) {
        put("");
        const QImage before = put("0.0166667");
        QTest::keyClick(&Field("eMin"), key);
        EXPECT_NE(Field("eMin").grab().toImage(), before);
    }
}

TEST_F(SetTimerTest, SetTakesWhatTheFieldsHoldAndTheNextOpeningShowsIt) {
    constexpr Int32 kLowest = std::numeric_limits<Int32>::min();
    for (const auto& [time, seconds, reopened] :
         {std::tuple("07:5", 425, "07:05"), {"91:", 5460, "91:00"}, {"-99999999999:-1", kLowest, "-2147483648:-01"}}) {
        EXPECT_FALSE(WidgetNamed("cvTime").isEnabled());
        Put(time);
        QTest::keyClick(&Field("eSec"), Qt::Key_Escape);  // does nothing
        QTest::keyClick(&Field("eSec"), Qt::Key_Enter);
        EXPECT_TRUE(WidgetNamed("cvTime").isEnabled());
        EXPECT_EQ(Timer().CurrentSeconds, seconds);
        EXPECT_FALSE(Timer().IsRunning);
        QCoreApplication::processEvents();  // the clock paints it
        Open();
        EXPECT_EQ(Shown(), reopened);
    }
    Put("7:é");
    QTest::keyClick(&Field("eMin"), Qt::Key_Tab);
    EXPECT_EQ(Shown(), "07:é") << "a field that loses the focus shows two digits";
    WidgetNamed("btnCancel").setFocus();
    EXPECT_EQ(Shown(), "07:00");
    QTest::keyClick(&WidgetNamed("btnCancel"), Qt::Key_Return);
    EXPECT_EQ(Timer().CurrentSeconds, kLowest);
}

}  // namespace
