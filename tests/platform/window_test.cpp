#include "platform/Window.h"

#include <gmock/gmock.h>

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QFontMetricsF>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <thread>

#include "platform/Canvas.h"
#include "platform/Controls.h"
#include "platform/Timer.h"
#include "platform/qt/events/MainThread.h"
#include "shell/MenuBar1.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingHost.h"

namespace {

using testing::ElementsAre;

/// A handler of this name throws.
std::string faulty;

bool Fault(const std::string& handler) {
    if (handler != faulty) return true;
    if (handler == "button Action") throw 1;
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
        canvas.MouseDown = [this](Int32 x, Int32 y) { return !HearAt("MouseDown", x, y); };
        canvas.MouseMove = [this](Int32 x, Int32 y) { HearAt("canvas MouseMove", x, y); };
        auto& field = AddControl<EditField>("field", 50, 0, 50, 22, 1);
        field.KeyDown = [this](const std::string& key) { return Hear("field KeyDown", " " + key); };
        field.LostFocus = [] { Fault("LostFocus"); };
        AddControl<PushButton>("button", 50, 22, 50, 22, 2).Action = [] { Fault("button Action"); };
        AddControl<Timer>("timer").Action = [] { Fault("timer Action"); };
        AddControl<GroupBox>("group", 20, 5, 170, 90, 3);
        AddControl<StaticText>("label", 0, 0, 180, 30, 0).InitialParent("group");
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
    const auto menu = [] { return Top().findChild<QMenuBar*>()->actions()[3]->menu(); };
    const auto moveOnCanvas = [] { Mouse(QEvent::MouseMove, WidgetNamed("canvas"), {}, Qt::NoButton); };
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"Open", Open},
        {"KeyDown", [] { Press(Top(), Qt::Key_A, "a"); }},
        {"EnableMenuItems", [&] { menu()->aboutToShow(); }},
        {"command", [&] { menu()->actions()[0]->trigger(); }},
        {"Paint", [] { WidgetNamed("canvas").grab(); }},
        {"MouseDown", [] { Mouse(QEvent::MouseButtonPress, WidgetNamed("canvas"), {}); }},
        {"canvas MouseMove", moveOnCanvas},
        {"MouseMove", moveOnCanvas},
        {"Resizing", [] { Probe::Instance().Width(Probe::Instance().Width() + 1); }},
        {"Resized", [] { Probe::Instance().Width(Probe::Instance().Width() + 1); }},
        {"field KeyDown", [] { Press(WidgetNamed("field"), Qt::Key_A, "a"); }},
        {"LostFocus", [] { WidgetNamed("field").setFocus(), WidgetNamed("button").setFocus(); }},
        {"button Action", [] { WidgetNamed<QPushButton>("button").click(); }},
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
        const auto message = faulty == "button Action" ? "Unexpected error" : "Unexpected error: in " + faulty;
        EXPECT_THAT(host.messages, ElementsAre(message + ".\n\nDwindledial goes on."));
    }
    EXPECT_EQ(Probe::Instance().Find<EditField>("field").Text(), "aaa") << "a handler that threw has consumed a key";
}

TEST_F(WindowTest, AnInstanceLastsUntilItIsClosedAndNoHandlerOfItsOwnWaits) {
    faulty = "Layout";
    End(Probe::Instance());
    EXPECT_THROW(Probe::Instance(), std::runtime_error);
    Dispose();
    EXPECT_EQ(Probe::alive, 0) << "a window that could not be built has stayed";
    faulty.clear();
    auto& first = Probe::Instance();
    EXPECT_THROW(first.Find<EditField>("canvas"), NilObjectException);
    first.Find<PushButton>("button").Action = [&] {
        QEventLoop loop;
        QTimer::singleShot(0, [&] {
            first.Close();
            first.Close();
        });
        QTimer::singleShot(1, &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_EQ(first.heard.back(), "Close") << "it is told once";
        EXPECT_NE(&Probe::Instance(), &first);
        EXPECT_EQ(Probe::alive, 2);
    };
    WidgetNamed<QPushButton>("button").click();
    Dispose();
    EXPECT_EQ(Probe::alive, 1);
}

TEST_F(WindowTest, KeysComeAsOneCharacterAndCommandsDont) {
    const std::tuple<Qt::Key, const char*, const char*> rows[] = {
        {Qt::Key_Return, "\r", "\x0D"},    {Qt::Key_Enter, "\r", "\x03"}, {Qt::Key_Backtab, "", "\x09"},
        {Qt::Key_Delete, "\x7f", "\x7F"},  {Qt::Key_Left, "", "\x1C"},    {Qt::Key_A, "A", "A"},
        {Qt::Key_unknown, "é\u0301", "é"}, {Qt::Key_F1, "", ""},
    };
    QWidget& field = WidgetNamed("field");
    for (const auto& [key, text, heard] : rows) {
        for (const auto held :
             {Qt::ShiftModifier, Qt::KeypadModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
            Press(field, key, text, held);
        const std::string expected = std::string("field KeyDown ") + heard;
        EXPECT_THAT(std::exchange(Probe::Instance().heard, {}), ElementsAre(expected, expected)) << key;
    }
    for (const auto key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_AltGr, Qt::Key_Super_L})
        Press(field, key, "");
    EXPECT_TRUE(Probe::Instance().heard.empty());
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

TEST_F(WindowTest, HasItsSizeBelowTheMenuBar) {
    const QRect menus = Top().findChild<QMenuBar*>()->geometry();
    const int bar = menus.height();
    EXPECT_EQ(menus, QRect(0, 0, 200, bar));
    EXPECT_EQ(Top().minimumSize(), QSize(180, 90 + bar));
    Top().resize(250, 130 + bar);
    EXPECT_EQ(WidgetNamed("canvas").mapTo(&Top(), QPoint()), QPoint(30, 7 + bar));
    EXPECT_EQ(WidgetNamed("label").mapTo(&Top(), QPoint()), QPoint(0, bar)) << "also in a group";
    EXPECT_THAT(Probe::Instance().heard, ElementsAre("Resizing", "Resized"));
}

TEST_F(WindowTest, TextIsSetSmallerWhereItDoesNotFit) {
    auto& label = Probe::Instance().Find<StaticText>("label");
    const auto& widget = WidgetNamed<QLabel>("label");
    for (const auto& [text, width, height] : {std::tuple("Flat", 60, 9), {"A label that is long", 80, 16}}) {
        label.Bounds(0, 0, 180, 30);
        label.Text(text);
        EXPECT_EQ(widget.font().pixelSize(), 13) << text;
        label.Bounds(0, 0, width, height);
        const QFontMetricsF metrics(widget.font());
        EXPECT_LE(metrics.horizontalAdvance(text), width) << text;
        EXPECT_LE(metrics.tightBoundingRect(text).height(), height) << text;
    }
}

}  // namespace
