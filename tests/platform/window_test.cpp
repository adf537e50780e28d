#include "platform/Window.h"

#include <gmock/gmock.h>

#include <QtCore/QEventLoop>
#include <QtCore/QScopeGuard>
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
#include "platform/Thread.h"
#include "platform/Timer.h"
#include "platform/qt/events/MainThread.h"
#include "shell/MenuBar1.h"
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

/// A window with controls of many kinds, which writes down what it hears.
struct Probe final : Window {
    static inline int alive = 0;
    std::vector<std::string> heard;

    static Probe& Instance() { return ImplicitInstance<Probe>("Probe.Probe"); }
    Probe() { ++alive; }
    ~Probe() override { --alive; }

    bool Hear(const std::string& event, const std::string& details = "") {
        heard.push_back(event + details);
        return Fault(event);
    }
    bool HearAt(const std::string& event, Int32 x, Int32 y) {
        return Hear(event, " " + std::to_string(x) + "," + std::to_string(y));
    }
    void Layout() override {
        _AddMenuHandler("ViewToggleFullscreen", [] { return Fault("command"); });
        CloseButton(false);
        Width(200);
        Height(100);
        MinSize(180, 90);
        Fault("Layout");
        Frame(Frames::Document);
        Resizeable(true);
        MenuBar(MenuBar1::Instance());
    }
    void CreateControls() override {
        auto& canvas = AddControl<Canvas>("canvas", 30, 7, 60, 60, 0);
        canvas.Paint = [](const Ref<Graphics>&) { Fault("Paint"); };
        canvas.MouseDown = [this](Int32 x, Int32 y) { return HearAt("MouseDown", x, y), false; };
        canvas.MouseMove = [this](Int32 x, Int32 y) { HearAt("canvas MouseMove", x, y); };
        auto& field = AddControl<EditField>("field", 50, 0, 50, 22, 1);
        field.KeyDown = [this](const std::string& key) { return Hear("field KeyDown", " " + key); };
        field.LostFocus = [] { Fault("LostFocus"); };
        AddControl<PushButton>("button", 50, 22, 50, 22, 2).Action = [] { Fault("button Action"); };
        AddControl<UpDownArrows>("arrows", 50, 50, 13, 22, 2).Up = [] { Fault("Up"); };
        AddControl<Timer>("timer").Action = [] { Fault("timer Action"); };
        AddControl<Thread>("thread");
        AddControl<ProgressBar>("bar", 0, 0, 50, 20, 0).Maximum(1000);
        AddControl<StaticText>("label", 0, 0, 180, 30, 0);
        for (const bool isWider : {true, false}) {
            auto& locked = AddControl<Canvas>(isWider ? "wider" : "higher", 10, 20, 60, 40, 0);
            locked.LockLeft(isWider);
            locked.LockTop(!isWider);
            locked.LockRight(true);
            locked.LockBottom(true);
        }
    }
    void Event_Open() override { Hear("Open"); }
    void Event_Close() override { Hear("Close"); }
    void Event_Resizing() override { Hear("Resizing"); }
    void Event_Resized() override { Hear("Resized"); }
    void Event_MouseMove(Int32 x, Int32 y) override { HearAt("MouseMove", x, y); }
    void Event_EnableMenuItems() override { Fault("EnableMenuItems"); }
    bool Event_KeyDown(const std::string& key) override { return Hear("KeyDown", " " + key); }
};

class WindowTest : public testing::Test {
  protected:
    WindowTest() { Open(); }
    ~WindowTest() override {
        faulty.clear();
        End(Probe::Instance());
    }

    static void Open() {
        End(Probe::Instance());
        Probe::Instance();
        Eventually([] { return QApplication::activeWindow(); });
        Probe::Instance().heard.clear();
    }
    static QWidget& Top() { return *QApplication::activeWindow(); }
    static void Dispose() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    RecordingHost& host = RecordingHost::InstallNew();
};

TEST_F(WindowTest, EachHandlerIsABoundaryForExceptions) {
    const auto widen = [] { Probe::Instance().Width(Probe::Instance().Width() + 1); };
    const auto move = [] { Mouse(QEvent::MouseMove, WidgetNamed("canvas"), {1, 1}, Qt::NoButton); };
    const auto press = [](const char* name) { Mouse(QEvent::MouseButtonPress, WidgetNamed(name), {5, 5}); };
    const auto menu = [] { return Top().findChild<QMenuBar*>()->actions()[3]->menu(); };
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"Open", Open},
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
        {"Up", [] { WidgetNamed("arrows").findChild<QAbstractButton*>()->click(); }},
        {"an action of a worker", [] { std::thread([] { OnMainThread(*qApp, [] { Fault(faulty); }); }).join(); }},
        {"timer Action", [] { Probe::Instance().Find<Timer>("timer").Mode(Timer::Modes::Single); }},
    };
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
        EXPECT_THAT(host.messages, ElementsAre(message + ".\n\nDwindledial goes on."));
    }
    EXPECT_EQ(Probe::Instance().Find<EditField>("field").Text(), "aaa") << "a handler that threw has consumed a key";
    EXPECT_TRUE(Probe::Instance().Visible());
}

TEST_F(WindowTest, AFaultWhileClosingEndsTheProgramWithStatus1) {
    faulty = "Close";
    QTimer::singleShot(0, qApp, [] { Probe::Instance().Close(); });
    EXPECT_EQ(QCoreApplication::exec(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(Probe::alive, 0);
    EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(WindowTest, NoOrderOfItsPropertiesChangesAWindow) {
    const int bar = Top().findChild<QMenuBar*>()->height();
    EXPECT_EQ(Top().size(), QSize(200, 100 + bar));
    EXPECT_EQ(Top().minimumSize(), QSize(180, 90 + bar));
    EXPECT_FALSE(Top().windowFlags() & Qt::WindowCloseButtonHint);
}

TEST_F(WindowTest, AnInstanceLastsUntilItIsClosed) {
    faulty = "Layout";
    End(Probe::Instance());
    EXPECT_THROW(Probe::Instance(), std::runtime_error);
    faulty.clear();
    auto& first = Probe::Instance();
    first.heard.clear();
    Dispose();
    EXPECT_EQ(Probe::alive, 1) << "a window that could not be built has stayed";
    EXPECT_THROW(first.Find<EditField>("canvas"), NilObjectException);
    first.Close();
    first.Close();
    EXPECT_THAT(first.heard, ElementsAre("Close"));
    EXPECT_NE(&Probe::Instance(), &first);
    EXPECT_EQ(Probe::alive, 2);
    Dispose();
    EXPECT_EQ(Probe::alive, 1);
}

TEST_F(WindowTest, AWindowOutlivesAHandlerThatWaitsWhileItCloses) {
    int aliveInHandler = 0;
    Probe::Instance().Find<PushButton>("button").Action = [&] {
        QEventLoop loop;
        QTimer::singleShot(0, [] { Probe::Instance().Close(); });
        QTimer::singleShot(1, &loop, &QEventLoop::quit);
        loop.exec();
        aliveInHandler = Probe::alive;
    };
    WidgetNamed<QPushButton>("button").click();
    EXPECT_EQ(aliveInHandler, 1);
    Dispose();
    EXPECT_EQ(Probe::alive, 0);
}

TEST_F(WindowTest, KeysComeAsOneCharacterAndCommandsDont) {
    const auto heard = [](Qt::Key key, const char* text, Qt::KeyboardModifiers held) {
        Probe::Instance().heard.clear();
        Press(WidgetNamed("field"), key, text, held);
        return Probe::Instance().heard;
    };
    const std::tuple<Qt::Key, const char*, std::string> rows[] = {
        {Qt::Key_Return, "\r", "\x0D"},    {Qt::Key_Enter, "\r", "\x03"}, {Qt::Key_Escape, "\x1b", "\x1B"},
        {Qt::Key_Backspace, "\b", "\x08"}, {Qt::Key_Tab, "\t", "\x09"},   {Qt::Key_Backtab, "", "\x09"},
        {Qt::Key_Delete, "\x7f", "\x7F"},  {Qt::Key_Left, "", "\x1C"},    {Qt::Key_Right, "", "\x1D"},
        {Qt::Key_Up, "", "\x1E"},          {Qt::Key_Down, "", "\x1F"},    {Qt::Key_A, "A", "A"},
        {Qt::Key_unknown, "é\u0301", "é"}, {Qt::Key_F1, "", ""}};
    for (const auto& [key, text, character] : rows) {
        for (const auto held : {Qt::ShiftModifier, Qt::KeypadModifier})
            EXPECT_THAT(heard(key, text, held), ElementsAre("field KeyDown " + character)) << key;
        for (const auto held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
            EXPECT_THAT(heard(key, text, held), IsEmpty()) << key;
    }
    for (const auto key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_AltGr, Qt::Key_Super_L})
        EXPECT_THAT(heard(key, "", Qt::NoModifier), IsEmpty()) << key;
    EXPECT_EQ(Probe::Instance().Find<EditField>("field").Text(), "") << "a consumed key has come through";
}

TEST_F(WindowTest, ThePointerCountsInWholePixelsForTheCanvasAndTheWindow) {
    QWidget& canvas = WidgetNamed("canvas");
    Mouse(QEvent::MouseButtonPress, canvas, {9.75, 26.99});
    Mouse(QEvent::MouseButtonDblClick, canvas, {10, 10});
    Mouse(QEvent::MouseButtonPress, canvas, {10, 10}, Qt::RightButton);
    Mouse(QEvent::MouseMove, canvas, {12, 12}, Qt::NoButton, Qt::LeftButton);
    Mouse(QEvent::MouseMove, canvas, {9.75, -0.25}, Qt::NoButton);
    EXPECT_THAT(Probe::Instance().heard,
                ElementsAre("MouseDown 9,26", "MouseDown 10,10", "canvas MouseMove 9,-1", "MouseMove 39,6"));
}

TEST_F(WindowTest, LockedEdgesFollowTheWindow) {
    Top().resize(Top().size() + QSize(50, 30));
    EXPECT_EQ(WidgetNamed("canvas").geometry(), QRect(30, 7, 60, 60));
    EXPECT_EQ(WidgetNamed("wider").geometry(), QRect(10, 50, 110, 40));
    EXPECT_EQ(WidgetNamed("higher").geometry(), QRect(60, 20, 60, 70));
    EXPECT_THAT(Probe::Instance().heard, ElementsAre("Resizing", "Resized"));
}

TEST_F(WindowTest, AWorkerHasEndedWhenItsWindowGoes) {
    bool hasEnded = false;
    auto& thread = Probe::Instance().Find<Thread>("thread");
    thread.RunEvent = [&hasEnded] {
        const auto end = qScopeGuard([&hasEnded] { QThread::msleep(50), hasEnded = true; });
        for (;;)
            Thread::Yield();
    };
    thread.Run();
    End(Probe::Instance());
    EXPECT_TRUE(hasEnded);
}

TEST_F(WindowTest, AFastWorkerDoesNotFloodTheMainThread) {
    auto& bar = Probe::Instance().Find<ProgressBar>("bar");
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
    auto& label = Probe::Instance().Find<StaticText>("label");
    const auto& widget = WidgetNamed<QLabel>("label");
    for (const auto& [text, box] : {std::pair("Flat", QSize(60, 9)), {"A label that is long", QSize(80, 16)}}) {
        label.Text(text);
        EXPECT_TRUE(widget.font().pixelSize() == 13 && widget.font().stretch() == 100) << text;
        label.Bounds(0, 0, box.width(), box.height());
        const QFontMetricsF metrics(widget.font());
        const QRectF letters = metrics.tightBoundingRect(text).translated(0, metrics.ascent() - metrics.height() / 2);
        EXPECT_LE(metrics.horizontalAdvance(text), box.width()) << text;
        EXPECT_TRUE(letters.top() >= -box.height() / 2.0 && letters.bottom() <= box.height() / 2.0) << text;
        label.Bounds(0, 0, 180, 30);
    }
}

}  // namespace
