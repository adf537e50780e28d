#include "platform/Window.h"

#include <gmock/gmock.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <QtGui/QFontMetricsF>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleOptionButton>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/Application.h"
#include "platform/Canvas.h"
#include "platform/Controls.h"
#include "platform/Graphics.h"
#include "platform/Timer.h"
#include "platform/qt/RectControlPeer.h"
#include "tests/support/RecordingHost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A handler of this name throws.
std::string faulty;

void Fault(const std::string& handler) {
    if (handler == faulty) throw std::runtime_error("fault in " + handler);
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
        Fault(event);
        return true;
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
    void Event_MouseMove(Int32 x, Int32 y) override {
        Hear("MouseMove", " " + std::to_string(x) + "," + std::to_string(y));
    }
    void Event_EnableMenuItems() override { Hear("EnableMenuItems"); }
    bool Event_KeyDown(const std::string& key) override { return Hear("KeyDown", " " + key); }
};

class WindowTest : public testing::Test {
  protected:
    ~WindowTest() override {
        faulty.clear();
        Close();
        Probe::furnish = nullptr;
    }

    static Probe& Open(std::function<void(Probe&)> furnish = nullptr) {
        Close();
        Probe::furnish = std::move(furnish);
        auto& window = Probe::Instance();
        Eventually([&] { return QApplication::activeWindow(); });
        window.heard.clear();
        return window;
    }
    static void Close() {
        Probe::Instance().Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    template <class Widget = QWidget, class C = Canvas>
    static Widget& WidgetNamed(const std::string& name) {
        return WidgetOf<Widget>(Probe::Instance().Find<C>(name));
    }
    static QWidget& TopWidget() { return *QApplication::activeWindow(); }

    static void Press(QWidget& widget, int key, const QString& text, Qt::KeyboardModifiers held = Qt::NoModifier,
                      bool isRepeat = false) {
        QKeyEvent event(QEvent::KeyPress, key, held, text, isRepeat);
        QCoreApplication::sendEvent(&widget, &event);
    }
    static void Mouse(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton,
                      Qt::MouseButtons held = Qt::NoButton) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button, held | button, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }

    static bool Eventually(const std::function<bool()>& holds) {
        for (const QDeadlineTimer deadline(20'000); !holds() && !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return holds();
    }

    RecordingHost& host = RecordingHost::InstallNew();
};

TEST_F(WindowTest, EachHandlerIsABoundaryForExceptions) {
    const auto furnish = [](Probe& window) {
        const auto bar = MakeRef<MenuBar>();
        bar->Append(MakeRef<MenuItem>());
        auto command = MakeRef<MenuItem>();
        command->Name("Command");
        bar->Children()[0]->Append(command);
        window.MenuBar(bar);
        window._AddMenuHandler("Command", [] { return Fault("command"), true; });
        auto& canvas = window.AddControl<Canvas>("canvas", 0, 0, 50, 50, 0);
        canvas.Paint = [](const Ref<Graphics>&) { Fault("Paint"); };
        canvas.MouseDown = [](Int32, Int32) { return Fault("MouseDown"), true; };
        canvas.MouseMove = [](Int32, Int32) { Fault("canvas MouseMove"); };
        auto& field = window.AddControl<EditField>("field", 50, 0, 50, 22, 1);
        field.KeyDown = [](const std::string&) { return Fault("field KeyDown"), false; };
        field.LostFocus = [] { Fault("LostFocus"); };
        window.AddControl<PushButton>("button", 50, 22, 50, 22, 2).Action = [] { Fault("button Action"); };
        window.AddControl<UpDownArrows>("arrows", 50, 50, 13, 22, 2).Up = [] { Fault("Up"); };
        window.AddControl<Timer>("timer").Action = [] { Fault("timer Action"); };
    };
    struct Row {
        const char* fault;
        std::function<void()> provoke;
    };
    const auto command = [] { return TopWidget().findChild<QMenuBar*>()->actions()[0]->menu()->actions()[0]; };
    const Row rows[] = {
        {"Open", [&] { Open(furnish); }},
        {"Resizing", [] { Probe::Instance().Width(Probe::Instance().Width() + 1); }},
        {"Resized", [] { Probe::Instance().Width(Probe::Instance().Width() + 1); }},
        {"KeyDown", [] { Press(TopWidget(), Qt::Key_A, "a"); }},
        {"MouseMove",
         [] {
             Mouse(WidgetNamed("canvas"), QEvent::MouseMove, {1, 1}, Qt::NoButton);
         }},
        {"EnableMenuItems", [] { TopWidget().findChild<QMenu*>()->aboutToShow(); }},
        {"command", [&] { command()->trigger(); }},
        {"Paint", [] { WidgetNamed("canvas").grab(); }},
        {"MouseDown",
         [] {
             Mouse(WidgetNamed("canvas"), QEvent::MouseButtonPress, {1, 1});
         }},
        {"canvas MouseMove",
         [] {
             Mouse(WidgetNamed("canvas"), QEvent::MouseMove, {1, 1}, Qt::NoButton);
         }},
        {"field KeyDown", [] { Press(WidgetNamed<QLineEdit, EditField>("field"), Qt::Key_A, "a"); }},
        {"LostFocus", [] { Probe::Instance().Find<EditField>("field").SetFocus(), Probe::Instance().SetFocus(); }},
        {"button Action", [] { WidgetNamed<QPushButton, PushButton>("button").click(); }},
        {"Up",
         [] {
             Mouse(WidgetNamed<QWidget, UpDownArrows>("arrows"), QEvent::MouseButtonPress, {5, 5});
         }},
        {"timer Action", [] { Probe::Instance().Find<Timer>("timer").Mode(Timer::Modes::Single); }},
    };
    Open(furnish);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fault);
        host.messages.clear();
        faulty = row.fault;
        for (int i = 0; i < 3; ++i) {
            row.provoke();
            QCoreApplication::processEvents();
        }
        EXPECT_TRUE(Eventually([&] { return !host.messages.empty(); }));
        EXPECT_THAT(host.messages, ElementsAre(std::string("Unexpected error: fault in ") + row.fault));
        faulty.clear();
    }
    EXPECT_EQ(Probe::Instance().Find<EditField>("field").Text(), "aaa") << "a handler that threw has consumed a key";
    EXPECT_TRUE(Probe::Instance().Visible());
}

TEST_F(WindowTest, AnUnknownExceptionIsReportedToo) {
    Open([](Probe& window) { window.AddControl<PushButton>("button").Action = [] { throw 1; }; });
    WidgetNamed<QPushButton, PushButton>("button").click();
    QCoreApplication::processEvents();
    EXPECT_THAT(host.messages, ElementsAre("Unexpected error"));
}

TEST_F(WindowTest, AFaultWhileClosingEndsTheProgramWithStatus1) {
    Open();
    faulty = "Close";
    QTimer::singleShot(0, qApp, Close);
    EXPECT_EQ(QCoreApplication::exec(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(Probe::alive, 0);
    EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(WindowTest, AnInstanceLastsUntilItIsClosed) {
    auto& first = Open();
    first.Hear("marked");
    EXPECT_EQ(&Probe::Instance(), &first);
    EXPECT_TRUE(first.Visible());
    first.Close();
    first.Close();
    EXPECT_THAT(first.heard, ElementsAre("marked", "Close"));
    auto& second = Probe::Instance();
    EXPECT_NE(&second, &first);
    EXPECT_THAT(second.heard, ElementsAre("Open"));
    EXPECT_EQ(Probe::alive, 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Probe::alive, 1);
}

TEST_F(WindowTest, OnlyAControlOfTheNameAndClassIsFound) {
    auto& window = Open([](Probe& probe) { probe.AddControl<Canvas>("canvas"); });
    EXPECT_NO_THROW(window.Find<Canvas>("canvas"));
    EXPECT_THROW(window.Find<Canvas>("Canvas"), NilObjectException);
    EXPECT_THROW(window.Find<EditField>("canvas"), NilObjectException);
}

TEST_F(WindowTest, LockedEdgesFollowTheWindow) {
    struct Row {
        bool left, top, right, bottom;
        QRect grown;  // by 50 and 30
    };
    const Row rows[] = {{false, false, false, false, {10, 20, 60, 40}}, {true, true, false, false, {10, 20, 60, 40}},
                        {false, false, true, false, {60, 20, 60, 40}},  {true, false, true, false, {10, 20, 110, 40}},
                        {false, false, false, true, {10, 50, 60, 40}},  {false, true, false, true, {10, 20, 60, 70}},
                        {true, true, true, true, {10, 20, 110, 70}},    {false, false, true, true, {60, 50, 60, 40}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        auto& window = Open([&](Probe& probe) {
            auto& canvas = probe.AddControl<Canvas>("canvas", 10, 20, 60, 40, 0);
            canvas.LockLeft(row.left);
            canvas.LockTop(row.top);
            canvas.LockRight(row.right);
            canvas.LockBottom(row.bottom);
        });
        TopWidget().resize(250, 130);
        EXPECT_EQ(WidgetNamed("canvas").geometry(), row.grown);
        EXPECT_THAT(window.heard, ElementsAre("Resizing", "Resized"));
        window.Width(200);
        window.Height(100);
        EXPECT_EQ(WidgetNamed("canvas").geometry(), QRect(10, 20, 60, 40));
    }
}

TEST_F(WindowTest, TimersFireByTheirMode) {
    std::string fired;
    auto& window = Open([&](Probe& probe) {
        for (const auto& [name, period] :
             {std::pair("off", 10), {"single", 10}, {"repeat", 10}, {"late", 100}, {"Restart", 60}, {"Anew", 90}}) {
            auto& timer = probe.AddControl<Timer>(name);
            timer.Period(period);
            timer.Action = [&fired, initial = *name] { fired += initial; };
        }
    });
    const auto timer = [&](const char* name) -> Timer& { return window.Find<Timer>(name); };
    const auto count = [&](char initial) { return std::count(fired.begin(), fired.end(), initial); };
    timer("off").Mode(Timer::Modes::Repeat);
    timer("off").Mode(Timer::Modes::Off);
    timer("single").Mode(Timer::Modes::Single);
    timer("repeat").Mode(Timer::Modes::Repeat);
    timer("late").Mode(Timer::Modes::Single);
    EXPECT_TRUE(Eventually([&] { return count('l') == 1 && count('r') >= 3; }));
    EXPECT_EQ(count('o'), 0);
    EXPECT_EQ(count('s'), 1);
    EXPECT_EQ(timer("single").Mode(), Timer::Modes::Off);
    EXPECT_EQ(timer("repeat").Mode(), Timer::Modes::Repeat);
    timer("repeat").Mode(Timer::Modes::Off);

    // Set once more at 60 milliseconds, a period of 90 ends behind one of 100.
    fired.clear();
    timer("Restart").Action = [&] { timer("Anew").Mode(Timer::Modes::Single); };
    for (const char* name : {"Restart", "Anew", "late"})
        timer(name).Mode(Timer::Modes::Single);
    EXPECT_TRUE(Eventually([&] { return count('A') == 1; }));
    EXPECT_EQ(fired, "lA");
}

TEST_F(WindowTest, KeysComeAsOneCharacter) {
    struct Row {
        int key;
        const char* text;
        std::string heard;  // empty: nothing
        Qt::KeyboardModifiers held = Qt::NoModifier;
    };
    std::vector<std::string> toField;
    auto& window = Open();
    for (const bool hasField : {false, true}) {
        if (hasField) {
            Open([&](Probe& probe) {
                probe.AddControl<EditField>("field", 0, 0, 50, 22, 0).KeyDown = [&](const std::string& key) {
                    toField.push_back("KeyDown " + key);
                    return true;
                };
            });
        }
        auto& heard = hasField ? toField : window.heard;
        for (const Row& row : {Row{Qt::Key_Return, "\r", "\x0D"},
                               Row{Qt::Key_Enter, "\r", "\x03", Qt::KeypadModifier},
                               Row{Qt::Key_Escape, "\x1b", "\x1B"},
                               Row{Qt::Key_Backspace, "\b", "\x08"},
                               Row{Qt::Key_Tab, "\t", "\x09"},
                               Row{Qt::Key_Backtab, "", "\x09", Qt::ShiftModifier},
                               Row{Qt::Key_Delete, "\x7f", "\x7F"},
                               Row{Qt::Key_Left, "", "\x1C"},
                               Row{Qt::Key_Right, "", "\x1D", Qt::ShiftModifier},
                               Row{Qt::Key_Up, "", "\x1E", Qt::KeypadModifier},
                               Row{Qt::Key_Down, "", "\x1F"},
                               Row{Qt::Key_Space, " ", " "},
                               Row{Qt::Key_A, "A", "A", Qt::ShiftModifier},
                               Row{Qt::Key_5, "5", "5", Qt::KeypadModifier},
                               Row{Qt::Key_Eacute, "é", "é"},
                               Row{Qt::Key_unknown, "e\u0301", "e"},
                               Row{Qt::Key_Shift, "", "", Qt::ShiftModifier},
                               Row{Qt::Key_F1, "", ""},
                               Row{Qt::Key_R, "\x12", "", Qt::ControlModifier},
                               Row{Qt::Key_Return, "\r", "", Qt::ControlModifier},
                               Row{Qt::Key_A, "a", "", Qt::AltModifier},
                               Row{Qt::Key_A, "a", "", Qt::MetaModifier}}) {
            heard.clear();
            Press(hasField ? WidgetNamed<QLineEdit, EditField>("field") : TopWidget(), row.key, row.text, row.held);
            const std::vector<std::string> expected(row.heard.empty() ? 0 : 1, "KeyDown " + row.heard);
            EXPECT_EQ(heard, expected) << QKeySequence(row.key).toString().toStdString()
                                       << (hasField ? " (field)" : "");
            if (hasField && !row.heard.empty()) {
                EXPECT_EQ(Probe::Instance().Find<EditField>("field").Text(), "") << "a consumed key has come through";
            }
        }
    }
}

TEST_F(WindowTest, AHeldKeyCountsOnceForTheWindowAndEachTimeForAField) {
    auto& window = Open([](Probe& probe) { probe.AddControl<EditField>("field", 0, 0, 50, 22, 0); });
    for (const bool isRepeat : {false, true, true}) {
        Press(TopWidget(), Qt::Key_Space, " ", Qt::NoModifier, isRepeat);
        Press(WidgetNamed<QLineEdit, EditField>("field"), Qt::Key_5, "5", Qt::NoModifier, isRepeat);
    }
    EXPECT_THAT(window.heard, ElementsAre("KeyDown  "));
    EXPECT_EQ(window.Find<EditField>("field").Text(), "555");
}

TEST_F(WindowTest, ThePointerCountsInWholePixelsForTheCanvasAndTheWindow) {
    std::vector<std::string> canvas;
    const auto note = [&](const char* event, Int32 x, Int32 y) {
        canvas.push_back(event + std::to_string(x) + "," + std::to_string(y));
    };
    auto& window = Open([&](Probe& probe) {
        auto& added = probe.AddControl<Canvas>("canvas", 30, 7, 60, 60, 0);
        added.MouseDown = [&](Int32 x, Int32 y) { return note("down ", x, y), false; };
        added.MouseMove = [&](Int32 x, Int32 y) { note("move ", x, y); };
    });
    QWidget& widget = WidgetNamed("canvas");
    Mouse(widget, QEvent::MouseButtonPress, {9.75, 26.99});
    Mouse(widget, QEvent::MouseButtonRelease, {9.75, 26.99});
    Mouse(widget, QEvent::MouseButtonDblClick, {10, 10});
    Mouse(widget, QEvent::MouseButtonPress, {10, 10}, Qt::RightButton);
    Mouse(widget, QEvent::MouseMove, {12, 12}, Qt::NoButton, Qt::LeftButton);
    EXPECT_THAT(canvas, ElementsAre("down 9,26", "down 10,10"));
    EXPECT_THAT(window.heard, IsEmpty());
    canvas.clear();
    Mouse(widget, QEvent::MouseMove, {9.75, 0.5}, Qt::NoButton);
    Mouse(widget, QEvent::MouseMove, {-0.25, 10}, Qt::NoButton);
    EXPECT_THAT(canvas, ElementsAre("move 9,0", "move -1,10"));
    EXPECT_THAT(window.heard, ElementsAre("MouseMove 39,7", "MouseMove 29,17"));
}

TEST_F(WindowTest, ACanvasCanBeDrawnOnAtAnyMoment) {
    int paints = 0;
    auto& canvas = Open([&](Probe& probe) {
                       auto& added = probe.AddControl<Canvas>("canvas", 0, 0, 60, 60, 0);
                       added.Paint = [&](const Ref<Graphics>& g) {
                           ++paints;
                           EXPECT_EQ(added.Graphics(), g);
                           g->ForeColor(RGB(0, 0, 255));
                           g->FillRect(0, 0, 10, 60);
                       };
                   }).Find<Canvas>("canvas");
    ASSERT_TRUE(Eventually([&] { return paints > 0; }));
    paints = 0;
    const auto outside = canvas.Graphics();
    EXPECT_EQ(outside->Width(), 60);
    outside->ForeColor(RGB(255, 0, 0));
    outside->FillRect(0, 0, 30, 60);
    EXPECT_TRUE(Eventually([&] { return paints > 0; }));
    const QImage shown = WidgetNamed("canvas").grab().toImage();
    EXPECT_EQ(shown.pixelColor(5, 5), QColor(0, 0, 255));
    EXPECT_EQ(shown.pixelColor(20, 5), QColor(255, 0, 0));
}

TEST_F(WindowTest, TextIsSetSmallerWhereItDoesNotFit) {
    const auto expectFit = [](const QFont& font, const QString& text, int flags, QSize box) {
        const QSizeF needed = QFontMetricsF(font).size(flags, text);
        EXPECT_TRUE(needed.width() <= box.width() && needed.height() <= box.height())
            << needed.width() << " x " << needed.height() << " in " << box.width() << " x " << box.height();
    };
    for (const auto& [text, box, fits] : {std::tuple("Min", QSize(60, 20), true),
                                          {"Minutes", QSize(26, 16), false},
                                          {"Flat", QSize(60, 9), false},
                                          {"A label that is long", QSize(80, 16), false},
                                          {"Добавить", QSize(40, 20), false},
                                          {"Cut & paste", QSize(60, 16), false}}) {
        SCOPED_TRACE(text);
        auto& window = Open([&, text = text, box = box](Probe& probe) {
            probe.AddControl<StaticText>("label", 0, 0, box.width(), box.height(), 0).Text(text);
            probe.AddControl<PushButton>("button", 0, 50, box.width(), box.height(), 0).Caption(text);
        });
        const auto& label = WidgetNamed<QLabel, StaticText>("label");
        expectFit(label.font(), label.text(), 0, box);
        const auto& button = WidgetNamed<QPushButton, PushButton>("button");
        QStyleOptionButton option;
        option.initFrom(&button);
        expectFit(button.font(), button.text(), Qt::TextShowMnemonic,
                  button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button).size());
        const auto isOwnSize = [&] { return label.font().pixelSize() == 13 && label.font().stretch() == 100; };
        EXPECT_EQ(isOwnSize(), fits);
        window.Find<StaticText>("label").Bounds(0, 0, 180, 30);
        EXPECT_TRUE(isOwnSize());
    }
}

}  // namespace
