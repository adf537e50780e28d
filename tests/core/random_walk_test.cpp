#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "colour/SmartColorWell.h"
#include "colour/winPrefs.h"
#include "movie/FileTypes.h"
#include "platform/qt/window/OpenWindows.h"
#include "tests/core/StateCheck.h"
#include "tests/fuzz/effort.h"
#include "tests/support/TimerWindowTest.h"

namespace {

/// A user who does anything at all, in any order.
class Walk : public TimerWindowTest {
  protected:
    Walk() { FileTypes::_Initialize(); }

    /// From the program's start to its end, at any moment.
    void Live() {
        EXPECT_EQ(Colours(), colours_) << "the colours are kept";
        for (const char* timer : {"TimerRun", "TimerDone"})
            Named(timer).Period(1'000'000'000);  // they fire when the walk says so
        check_ = StateCheck(host);
        stepsLeft_ = 50 + Below(200);
        Next();
        QCoreApplication::exec();
        open_windows::Clear();
    }

    std::vector<std::string> actions_;

    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    template <class Items>
    auto OneOf(const Items& items) {
        return *std::next(std::begin(items), Below(static_cast<int>(std::size(items))));
    }

    static std::vector<Color> Colours() {
        return {Timer().Color_Window_Background, Timer().Color_Clock_Wedge, Timer().Color_Clock_Face,
                Timer().Color_Clock_Frame};
    }
    static ::Timer& Named(const char* name) { return Timer().Find<::Timer>(name); }
    static QWidget& Clock() { return WidgetNamed("cvTime"); }
    static std::vector<QWidget*> Windows() {
        std::vector<QWidget*> windows;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && !qobject_cast<QMenu*>(window)) windows.push_back(window);
        }
        std::ranges::sort(windows, {}, &QWidget::windowTitle);  // they come in no order
        return windows;
    }
    static QWidget* Dialog() {
        const std::vector<QWidget*> windows = Windows();
        const auto dialog = std::ranges::find(windows, Qt::Dialog, &QWidget::windowType);
        return dialog == windows.end() ? nullptr : *dialog;
    }

    // By a timer, so that the next action comes to the event loop of a dialog that this one opens.
    void Next() {
        QTimer::singleShot(1, &context_, [this] { Step(); });
    }
    void Step() {
        if (stepsLeft_-- == 0 || HasFailure()) return Quit();
        Next();
        check_.MayRise(Dialog() != nullptr);
        using Action = void (Walk::*)();
        static constexpr Action kInDialog[] = {&Walk::PressKey, &Walk::PressKey, &Walk::Click, &Walk::Click,
                                               &Walk::Click,    &Walk::Drop,     &Walk::Tick,  &Walk::CloseWindow};
        static constexpr Action kElsewhere[] = {
            &Walk::PressKey, &Walk::Click, &Walk::ClickOnIcon, &Walk::Choose, &Walk::Choose, &Walk::SetTime,
            &Walk::Resize,   &Walk::Beep,  &Walk::Tick,        &Walk::Tick,   &Walk::Tick,   &Walk::CloseWindow};
        (this->*(Dialog() ? OneOf(kInDialog) : OneOf(kElsewhere)))();
        if (open_windows::Find("winMain.winMain")) Check();
    }
    void Quit() {
        colours_ = Colours();
        Dialog() || Below(2) == 0 ? void(Clock().window()->close()) : open_windows::CloseAll();
    }

    // Time goes on by some quarters of a second; by hours when the machine slept.
    void Tick() {
        const double seconds = Below(10) == 0 ? Below(10'000) : Below(20) / 4.0;
        actions_.push_back("tick after " + std::to_string(seconds));
        check_.TickComes();
        TickAfter(seconds);
    }
    void Beep() {
        if (Named("TimerDone").Mode() == ::Timer::Modes::Off) return;
        actions_.push_back("time to beep");
        check_.BeepIsDue();
        Timer().TimerDone_Action();
    }
    void Choose() {
        PassEnabling();
        QAction& item = *OneOf(Clock().window()->actions());
        if (!item.isEnabled() || item.shortcut() == QKeySequence("Ctrl+Q")) return;
        actions_.push_back("choose " + item.text().toStdString());
        item.trigger();
    }
    void SetTime() {
        if (Timer().IsRunning || Timer().IsDone) return;
        check_.MayRise(true);
        Timer().CurrentSeconds = Below(Below(2) == 0 ? 10 : 3631);
        actions_.push_back("set " + std::to_string(Timer().CurrentSeconds) + " seconds");
    }
    void ClickOnIcon() {
        actions_.push_back("click on the icon");
        const bool starts = !Timer().IsRunning && !Timer().IsDone && Timer().CurrentSeconds > 0;
        Mouse(QEvent::MouseButtonPress, Clock(), QPoint(10 + Below(17), 26));
        EXPECT_TRUE(Timer().IsRunning == starts && !Timer().IsDone);
    }
    void Click() {
        const QWidget& window = Dialog() ? *Dialog() : *OneOf(Windows());
        const QPointer<QWidget> widget = OneOf(window.findChildren<QWidget*>());
        if (!widget->isVisible() || qobject_cast<QMenuBar*>(widget)) return;
        const QPoint at(Below(widget->width() + 9) - 4, Below(widget->height() + 9) - 4);
        host.pickedColor = Color{Below(1 << 24)};
        actions_.push_back("click on " + widget->objectName().toStdString() + " of " +
                           window.windowTitle().toStdString());
        Mouse(QEvent::MouseMove, *widget, at, Qt::NoButton);
        Mouse(QEvent::MouseButtonPress, *widget, at);
        if (widget) Mouse(QEvent::MouseButtonRelease, *widget, at);
    }
    void PressKey() {
        const int key = OneOf(std::to_array<int>({Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape,
                                                  Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_A, Qt::Key_1}));
        QWidget* const focused = QApplication::focusWidget();
        const QPointer<QWidget> widget = focused && Below(4) > 0 ? focused : OneOf(Windows());
        actions_.push_back("press " + std::to_string(key) + " in " + widget->window()->windowTitle().toStdString());
        Press(*widget, key, key < Qt::Key_Escape ? QString(QChar(key)) : QString());
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        if (widget) QCoreApplication::sendEvent(widget, &release);
    }
    void Drop() {
        const char* const text = OneOf(std::to_array({"#00ff7F", "123456", "no number", "99999999999", "1e999", ""}));
        const char* const well = OneOf(std::to_array({"cBackground", "cWedge", "cFace", "cFrame"}));
        actions_.push_back(std::string("drop ") + text);
        const auto fields = Dialog()->findChildren<QLineEdit*>();
        if (!fields.isEmpty()) return OneOf(fields)->insert(text);
        winPrefs::Instance().Find<SmartColorWell>(well).setColorFromHexString(text);
    }
    void Resize() {
        actions_.emplace_back("resize");
        Clock().window()->resize(Below(1500), Below(1200));
    }
    void CloseWindow() {
        QWidget& window = *OneOf(Windows());
        if (&window == Clock().window()) return;
        actions_.push_back("close " + window.windowTitle().toStdString());
        window.close();
    }

    static void PassEnabling() {
        QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_R, Qt::ControlModifier);
        QCoreApplication::sendEvent(Clock().window(), &event);
    }
    void Check() {
        ASSERT_NO_FATAL_FAILURE(check_.Run());
        std::set<std::string> titles;
        for (const QWidget* window : Windows())
            ASSERT_TRUE(titles.insert(window->windowTitle().toStdString()).second) << "two of a kind";
        const auto dialogs = titles.count("Set Timer") + titles.count("Preferences") + titles.count("Create Movie");
        ASSERT_EQ(dialogs, Dialog() ? 1U : 0U);
        ASSERT_EQ(Clock().isEnabled(), !Dialog());
        const bool isStopped = !Timer().IsRunning && !Timer().IsDone;
        ASSERT_TRUE(!Dialog() || (isStopped && !Timer().FullScreen()));
        if (Dialog()) return;
        PassEnabling();
        ASSERT_EQ(Timer().TimerStart()->Text(), Timer().IsDone ? "Dismiss" : Timer().IsRunning ? "Stop" : "Start");
        ASSERT_EQ(Timer().TimerSet()->Enabled(), isStopped);
    }

    std::mt19937 random_{FuzzSeed()};
    std::vector<Color> colours_ = Colours();
    StateCheck check_{host};
    int stepsLeft_ = 0;
    QObject context_;
};

TEST_F(Walk, LeadsToNoStateThatMustNotBe) {
    const auto end = std::chrono::steady_clock::now() + FuzzDuration();
    while (!HasFailure() && std::chrono::steady_clock::now() < end)
        Live();
    std::printf("FUZZ_SEED=%u, %zu actions\n", FuzzSeed(), actions_.size());
    for (std::size_t i = std::max<std::size_t>(actions_.size(), 30) - 30; HasFailure() && i < actions_.size(); ++i)
        std::printf("  %s\n", actions_[i].c_str());
}

}  // namespace
