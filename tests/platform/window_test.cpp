#include "platform/Window.h"

#include <gmock/gmock.h>

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QFontMetricsF>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "platform/Canvas.h"
#include "platform/Controls.h"
#include "platform/Timer.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingHost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A handler of this name throws.
std::string faulty;

bool Fault(const std::string& handler) {
    if (handler != faulty) return true;
    if (handler == "Up") throw 1;
    throw std::runtime_error("in " + handler);
}

/// A window that a test furnishes, which writes down what it hears.
struct Probe final : Window {
    static inline std::function<void(Probe&)> furnish;
    static inline int alive = 0;

    static Probe& Instance() { return ImplicitInstance<Probe>("Probe.Probe"); }
    Probe() { ++alive; }
    ~Probe() override { --alive; }
    using Window::AddControl;

    std::vector<std::string> heard;

    bool Hear(const std::string& event, const std::string& details = "") {
        heard.push_back(event + details);
        return Fault(event);
    }
    void HearAt(const std::string& event, Int32 x, Int32 y) {
        Hear(event, " " + std::to_string(x) + "," + std::to_string(y));
    }
    void Layout() override {
        Width(200);
        Height(100);
    }
    void CreateControls() override {
        if (furnish) furnish(*this);
    }
    void Event_Open() override { Hear("Open"); }
    void Event_Close() override { Hear("Close"); }
    void Event_Resizing() override { Hear("Resizing"); }
    void Event_Resized() override { Hear("Resized"); }
    void Event_MouseMove(Int32 x, Int32 y) override { HearAt("MouseMove", x, y); }
    void Event_EnableMenuItems() override { Hear("EnableMenuItems"); }
    bool Event_KeyDown(const std::string& key) override { return Hear("KeyDown", " " + key); }
};

class WindowTest : public testing::Test {
  protected:
    ~WindowTest() override {
        faulty.clear();
        End(Probe::Instance());
        Probe::furnish = nullptr;
    }

    static Probe& Open(std::function<void(Probe&)> furnish = nullptr) {
        End(Probe::Instance());
        Probe::furnish = std::move(furnish);
        auto& window = Probe::Instance();
        Eventually([] { return QApplication::activeWindow(); });
        window.heard.clear();
        return window;
    }
    static QWidget& Top() { return *QApplication::activeWindow(); }

    RecordingHost& host = RecordingHost::InstallNew();
};

TEST_F(WindowTest, EachHandlerIsABoundaryForExceptions) {
    const auto furnish = [](Probe& window) {
        const auto bar = MakeRef<MenuBar>();
        bar->Append(MakeRef<MenuItem>());
        bar->Children()[0]->Append(MakeRef<MenuItem>());
        bar->Children()[0]->Children()[0]->Name("command");
        window.MenuBar(bar);
        window._AddMenuHandler("command", [] { return Fault("command"); });
        auto& canvas = window.AddControl<Canvas>("canvas", 0, 0, 50, 50, 0);
        canvas.Paint = [](const Ref<Graphics>&) { Fault("Paint"); };
        canvas.MouseDown = [](Int32, Int32) { return Fault("MouseDown"); };
        canvas.MouseMove = [](Int32, Int32) { Fault("canvas MouseMove"); };
        auto& field = window.AddControl<EditField>("field", 50, 0, 50, 22, 1);
        field.KeyDown = [](const std::string&) { return !Fault("field KeyDown"); };
        field.LostFocus = [] { Fault("LostFocus"); };
        window.AddControl<PushButton>("button", 50, 22, 50, 22, 2).Action = [] { Fault("button Action"); };
        window.AddControl<UpDownArrows>("arrows", 50, 50, 13, 22, 2).Up = [] { Fault("Up"); };
        window.AddControl<Timer>("timer").Action = [] { Fault("timer Action"); };
    };
    const auto widen = [] { Probe::Instance().Width(Probe::Instance().Width() + 1); };
    const auto move = [] { Mouse(QEvent::MouseMove, WidgetNamed("canvas"), {1, 1}, Qt::NoButton); };
    const auto press = [](const char* name) { Mouse(QEvent::MouseButtonPress, WidgetNamed(name), {5, 5}); };
    const auto menu = [] { return Top().findChild<QMenuBar*>()->actions()[0]->menu(); };
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"Open", [&] { Open(furnish); }},
        {"Resizing", widen},
        {"Resized", widen},
        {"KeyDown", [] { Press(Top(), Qt::Key_A, "a"); }},
        {"MouseMove", move},
        {"EnableMenuItems", [&] { menu()->aboutToShow(); }},
        {"command", [&] { menu()->actions()[0]->trigger(); }},
        {"Paint", [] { WidgetNamed("canvas").grab(); }},
        {"MouseDown", [&] { press("canvas"); }},
        {"canvas MouseMove", move},
        {"field KeyDown", [] { Press(WidgetNamed("field"), Qt::Key_A, "a"); }},
        {"LostFocus", [] { WidgetNamed("field").setFocus(), Probe::Instance().SetFocus(); }},
        {"button Action", [] { WidgetNamed<QPushButton>("button").click(); }},
        {"Up", [&] { press("arrows"); }},
        {"timer Action", [] { Probe::Instance().Find<Timer>("timer").Mode(Timer::Modes::Single); }},
    };
    Open(furnish);
    for (const auto& [fault, provoke] : rows) {
        SCOPED_TRACE(fault);
        host.messages.clear();
        faulty = fault;
        for (int i = 0; i < 3; ++i) {
            provoke();
            QCoreApplication::processEvents();
        }
        EXPECT_TRUE(Eventually([&] { return !host.messages.empty(); }));
        const auto message = faulty == "Up" ? "Unexpected error" : "Unexpected error: in " + faulty;
        EXPECT_THAT(host.messages, ElementsAre(message));
    }
    EXPECT_EQ(Probe::Instance().Find<EditField>("field").Text(), "aaa") << "a handler that threw has consumed a key";
    EXPECT_TRUE(Probe::Instance().Visible());
}

TEST_F(WindowTest, AFaultWhileClosingEndsTheProgramWithStatus1) {
    Open();
    faulty = "Close";
    QTimer::singleShot(0, qApp, [] { Probe::Instance().Close(); });
    EXPECT_EQ(QCoreApplication::exec(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(Probe::alive, 0);
    EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(WindowTest, AnInstanceLastsUntilItIsClosed) {
    auto& first = Open([](Probe& probe) { probe.AddControl<Canvas>("canvas"); });
    EXPECT_EQ(&Probe::Instance(), &first);
    EXPECT_THROW(first.Find<EditField>("canvas"), NilObjectException);
    first.Close();
    first.Close();
    EXPECT_THAT(first.heard, ElementsAre("Close"));
    EXPECT_THAT(Probe::Instance().heard, ElementsAre("Open"));
    EXPECT_EQ(Probe::alive, 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Probe::alive, 1);
}

TEST_F(WindowTest, AWindowOutlivesAHandlerThatWaitsWhileItCloses) {
    int aliveInHandler = 0;
    Open([&](Probe& window) {
        window.AddControl<PushButton>("button", 0, 0, 50, 22, 0).Action = [&] {
            QEventLoop loop;
            QTimer::singleShot(0, [&] { window.Close(); });
            QTimer::singleShot(1, &loop, &QEventLoop::quit);
            loop.exec();
            aliveInHandler = Probe::alive;
        };
    });
    WidgetNamed<QPushButton>("button").click();
    EXPECT_EQ(aliveInHandler, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Probe::alive, 0);
}

TEST_F(WindowTest, KeysComeAsOneCharacter) {
    auto& window = Open([&](Probe& probe) {
        probe.AddControl<EditField>("field", 0, 0, 50, 22, 0).KeyDown = [&](const std::string& key) {
            return probe.Event_KeyDown(key);
        };
    });
    using Row = std::tuple<Qt::Key, const char*, const char*>;  // key, its text, what is heard of it
    for (QWidget* widget : {&Top(), &WidgetNamed("field")}) {
        const auto expect = [&](const Row& row, Qt::KeyboardModifiers held) {
            const auto& [key, text, heard] = row;
            window.heard.clear();
            Press(*widget, key, text, held);
            const std::vector<std::string> expected(*heard ? 1 : 0, std::string("KeyDown ") + heard);
            EXPECT_EQ(window.heard, expected) << key << " with " << held;
        };
        for (const Row& row :
             {Row{Qt::Key_Return, "\r", "\x0D"}, Row{Qt::Key_Enter, "\r", "\x03"}, Row{Qt::Key_Escape, "\x1b", "\x1B"},
              Row{Qt::Key_Backspace, "\b", "\x08"}, Row{Qt::Key_Tab, "\t", "\x09"}, Row{Qt::Key_Backtab, "", "\x09"},
              Row{Qt::Key_Delete, "\x7f", "\x7F"}, Row{Qt::Key_Left, "", "\x1C"}, Row{Qt::Key_Right, "", "\x1D"},
              Row{Qt::Key_Up, "", "\x1E"}, Row{Qt::Key_Down, "", "\x1F"}, Row{Qt::Key_A, "A", "A"},
              Row{Qt::Key_unknown, "é\u0301", "é"}, Row{Qt::Key_F1, "", ""}}) {
            expect(row, Qt::ShiftModifier);
            expect(row, Qt::KeypadModifier);
        }
        for (const auto held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
            expect({Qt::Key_Return, "\r", ""}, held);
            expect({Qt::Key_A, "a", ""}, held);
        }
    }
    EXPECT_EQ(window.Find<EditField>("field").Text(), "") << "a consumed key has come through";
}

TEST_F(WindowTest, ThePointerCountsInWholePixelsForTheCanvasAndTheWindow) {
    auto& window = Open([](Probe& probe) {
        auto& canvas = probe.AddControl<Canvas>("canvas", 30, 7, 60, 60, 0);
        canvas.MouseDown = [&](Int32 x, Int32 y) { return probe.HearAt("down", x, y), false; };
        canvas.MouseMove = [&](Int32 x, Int32 y) { probe.HearAt("move", x, y); };
    });
    QWidget& canvas = WidgetNamed("canvas");
    Mouse(QEvent::MouseButtonPress, canvas, {9.75, 26.99});
    Mouse(QEvent::MouseButtonRelease, canvas, {9.75, 26.99});
    Mouse(QEvent::MouseButtonDblClick, canvas, {10, 10});
    Mouse(QEvent::MouseButtonPress, canvas, {10, 10}, Qt::RightButton);
    Mouse(QEvent::MouseMove, canvas, {12, 12}, Qt::NoButton, Qt::LeftButton);
    Mouse(QEvent::MouseMove, canvas, {9.75, -0.25}, Qt::NoButton);
    EXPECT_THAT(window.heard, ElementsAre("down 9,26", "down 10,10", "move 9,-1", "MouseMove 39,6"));
}

TEST_F(WindowTest, LockedEdgesFollowTheWindow) {
    auto& window = Open([](Probe& probe) {
        const auto add = [&](const char* name, bool left, bool top, bool right, bool bottom) {
            auto& canvas = probe.AddControl<Canvas>(name, 10, 20, 60, 40, 0);
            canvas.LockLeft(left);
            canvas.LockTop(top);
            canvas.LockRight(right);
            canvas.LockBottom(bottom);
        };
        add("none", false, false, false, false);
        add("wider", true, false, true, true);
        add("higher", false, true, true, true);
    });
    Top().resize(250, 130);
    EXPECT_EQ(WidgetNamed("none").geometry(), QRect(10, 20, 60, 40));
    EXPECT_EQ(WidgetNamed("wider").geometry(), QRect(10, 50, 110, 40));
    EXPECT_EQ(WidgetNamed("higher").geometry(), QRect(60, 20, 60, 70));
    EXPECT_THAT(window.heard, ElementsAre("Resizing", "Resized"));
}

TEST_F(WindowTest, AFastWorkerDoesNotFloodTheMainThread) {
    auto& bar =
        Open([](Probe& probe) { probe.AddControl<ProgressBar>("bar", 0, 0, 50, 20, 0); }).Find<ProgressBar>("bar");
    bar.Maximum(1000);
    int changes = 0;
    QObject::connect(&WidgetNamed<QProgressBar>("bar"), &QProgressBar::valueChanged, [&](int) { ++changes; });
    std::thread([&bar] {
        for (int i = 1; i <= 1000; ++i) {
            bar.Value(i);
            bar.Refresh(true);
        }
    }).join();
    EXPECT_EQ(changes, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar.Value(), 1000);
    EXPECT_EQ(changes, 1);
}

TEST_F(WindowTest, TextIsSetSmallerWhereItDoesNotFit) {
    for (const auto& [text, box] : {std::pair("Flat", QSize(60, 9)), {"A label that is long", QSize(80, 16)}}) {
        auto& window = Open([&, text = text, box = box](Probe& probe) {
            probe.AddControl<StaticText>("label", 0, 0, box.width(), box.height(), 0).Text(text);
        });
        const auto& label = WidgetNamed<QLabel>("label");
        const QFontMetricsF metrics(label.font());
        const QRectF letters = metrics.tightBoundingRect(text).translated(0, metrics.ascent() - metrics.height() / 2);
        EXPECT_LE(metrics.horizontalAdvance(text), box.width()) << text;
        EXPECT_TRUE(letters.top() >= -box.height() / 2.0 && letters.bottom() <= box.height() / 2.0) << text;
        window.Find<StaticText>("label").Bounds(0, 0, 180, 30);
        EXPECT_TRUE(label.font().pixelSize() == 13 && label.font().stretch() == 100) << text;
    }
}

}  // namespace
