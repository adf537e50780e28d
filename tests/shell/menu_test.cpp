#include <gmock/gmock.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include "platform/Controls.h"
#include "shell/MenuBar1.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Row {
    std::string name;
    std::string caption;
    std::function<Ref<MenuItem>(const winMain&)> accessor;
    std::string shortcut = "";
    bool autoEnable = true;
    const std::type_info* type = &typeid(MenuItem);

    bool IsMenu() const { return name.ends_with("Menu"); }
    bool IsEdit() const { return name.starts_with("Edit") && !IsMenu(); }
};

/// The menus, each followed by its items.
const std::vector<Row> kRows = {
    {"FileMenu", "&File", &winMain::FileMenu},
    {"FilePreferences", "&Preferences...", &winMain::FilePreferences, "Cmd+,", false, &typeid(PrefsMenuItem)},
    {"FileCreateMovie", "Create &Movie...", &winMain::FileCreateMovie, "Cmd+M", false},
    {"FileQuit", "&Quit", &winMain::FileQuit, "Cmd+Q", true, &typeid(QuitMenuItem)},
    {"EditMenu", "&Edit", &winMain::EditMenu},
    {"EditUndo", "&Undo", &winMain::EditUndo, "Cmd+Z"},
    {"UntitledMenu1", "-", &winMain::UntitledMenu1},
    {"EditCut", "Cu&t", &winMain::EditCut, "Cmd+X"},
    {"EditCopy", "&Copy", &winMain::EditCopy, "Cmd+C"},
    {"EditPaste", "&Paste", &winMain::EditPaste, "Cmd+V"},
    {"EditClear", "&Delete", &winMain::EditClear},
    {"UntitledMenu0", "-", &winMain::UntitledMenu0},
    {"EditSelectAll", "Select &All", &winMain::EditSelectAll, "Cmd+A"},
    {"TimerMenu", "&Timer", &winMain::TimerMenu},
    {"TimerSet", "S&et...", &winMain::TimerSet, "Cmd+T", false},
    {"TimerStart", "&Start", &winMain::TimerStart, "Cmd+R"},
    {"ViewMenu", "&View", &winMain::ViewMenu},
    {"ViewToggleFullscreen", "Toggle &Fullscreen", &winMain::ViewToggleFullscreen, "Cmd+F"},
    {"HelpMenu", "&Help", &winMain::HelpMenu},
    {"HelpHelp", "&Help...", &winMain::HelpHelp},
    {"UntitledSeparator", "-", &winMain::UntitledSeparator},
    {"HelpDonate", "&Donate...", &winMain::HelpDonate},
    {"HelpVisitWebsite", "&Visit Website...", &winMain::HelpVisitWebsite},
    {"UntitledSeparator0", "-", &winMain::UntitledSeparator0},
    {"HelpAbout", "&About Dwindledial...", &winMain::HelpAbout, "", true, &typeid(AppleMenuItem)},
};

struct FieldWindow final : Window {
    static FieldWindow& Instance() { return ImplicitInstance<FieldWindow>("FieldWindow.FieldWindow"); }
    void CreateControls() override { AddControl<EditField>("field", 0, 0, 100, 22, 1).Text("text"); }
};

class MenuTest : public TimerWindowTest {
  protected:
    static QWidget& Widget() {
        Timer();
        const QWidgetList windows = QApplication::topLevelWidgets();
        return **std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
            return window->isVisible() && window->windowTitle() == "Dwindledial";
        });
    }
    /// What the menu bar shows, in the order of the rows.
    static std::vector<QAction*> Actions() {
        std::vector<QAction*> all;
        for (QAction* menu : Widget().findChild<QMenuBar*>()->actions()) {
            all.push_back(menu);
            for (QAction* item : menu->menu()->actions())
                all.push_back(item);
        }
        return all;
    }
    static QAction& ActionOf(std::string_view name) {
        const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& r) { return r.name == name; });
        return *Actions().at(static_cast<std::size_t>(row - kRows.begin()));
    }

    static void PassBeforeShortcut() {
        QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_R, Qt::ControlModifier);
        QCoreApplication::sendEvent(&Widget(), &event);
    }
    static void Choose(std::string_view name) {
        PassBeforeShortcut();
        ActionOf(name).trigger();
    }

    static bool Eventually(const std::function<bool()>& holds) {
        for (const QDeadlineTimer deadline(20'000); !holds() && !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return holds();
    }
};

TEST_F(MenuTest, TheTree) {
    const MenuBar1 bar;
    std::vector<Ref<MenuItem>> items;
    for (const auto& menu : bar.Children()) {
        items.push_back(menu);
        items.insert(items.end(), menu->Children().begin(), menu->Children().end());
    }
    ASSERT_EQ(items.size(), kRows.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        const MenuItem& item = *items[i];
        SCOPED_TRACE(kRows[i].name);
        EXPECT_EQ(item.Name(), kRows[i].name);
        EXPECT_EQ(item.Text(), kRows[i].caption);
        EXPECT_EQ(item.KeyboardShortcut(), kRows[i].shortcut);
        EXPECT_EQ(item.AutoEnable(), kRows[i].autoEnable);
        EXPECT_EQ(typeid(item), *kRows[i].type);
        EXPECT_EQ(item.Children().empty(), !kRows[i].IsMenu());
    }
}

TEST_F(MenuTest, TheWindowShowsItAndGivesEachItemByItsName) {
    const auto actions = Actions();
    ASSERT_EQ(actions.size(), kRows.size());
    for (std::size_t i = 0; i < actions.size(); ++i) {
        const Row& row = kRows[i];
        SCOPED_TRACE(row.name);
        const auto item = row.accessor(Timer());
        ASSERT_TRUE(item);
        EXPECT_EQ(item, MenuBar1::Instance()->Child(row.name));
        EXPECT_EQ(item->Name(), row.name);
        EXPECT_EQ(actions[i]->isSeparator(), row.caption == "-");
        if (row.caption != "-") {
            EXPECT_EQ(actions[i]->text().toStdString(), item->Text());
        }
        const auto key = row.shortcut.empty() ? QKeySequence() : QKeySequence(Qt::CTRL | Qt::Key(row.shortcut.back()));
        EXPECT_EQ(actions[i]->shortcut(), key);
    }
}

TEST_F(MenuTest, StartHasAnAccessKeyUntilTheFirstPass) {
    MenuBar1::Instance()->Child("TimerStart")->Text("&Start");  // the bar outlives the windows of the other tests
    EXPECT_EQ(ActionOf("TimerStart").text(), "&Start");
    PassBeforeShortcut();
    EXPECT_EQ(ActionOf("TimerStart").text(), "Start");
}

TEST_F(MenuTest, EachPassFollowsTheState) {
    std::vector<std::function<void()>> passes = {PassBeforeShortcut};
    for (const QAction* action : Actions()) {
        if (QMenu* menu = action->menu()) passes.emplace_back([menu] { menu->aboutToShow(); });
    }
    ASSERT_EQ(passes.size(), 6U);
    struct State {
        bool isRunning, isDone;
        const char* caption;
    };
    for (const auto& pass : passes) {
        for (const State& state : {State{true, false, "Stop"}, State{false, true, "Dismiss"},
                                   State{false, false, "Start"}, State{true, true, "Dismiss"}}) {
            Timer().IsRunning = state.isRunning;
            Timer().IsDone = state.isDone;
            pass();
            EXPECT_EQ(ActionOf("TimerStart").text(), state.caption);
            const bool isStopped = !state.isRunning && !state.isDone;
            for (const Row& row : kRows) {
                if (row.caption == "-") continue;
                EXPECT_EQ(ActionOf(row.name).isEnabled(), !row.IsEdit() && (row.autoEnable || isStopped))
                    << row.name << " while " << state.caption;
            }
        }
    }
}

TEST_F(MenuTest, CommandsGoToTheHandlerOfTheirName) {
    Timer().CurrentSeconds = 60;
    Choose("TimerStart");
    EXPECT_TRUE(Timer().IsRunning);
    Choose("TimerSet");  // disabled
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(Timer().IsRunning);
    Choose("TimerStart");
    EXPECT_FALSE(Timer().IsRunning);
    Choose("ViewToggleFullscreen");
    EXPECT_TRUE(Timer().FullScreen());
    Choose("ViewToggleFullscreen");
    EXPECT_FALSE(Timer().FullScreen());
    Choose("HelpVisitWebsite");
    Choose("HelpDonate");
    EXPECT_THAT(host.urls, ElementsAre("http://www.example.org",
                                       "https://www.example.org/cgi-bin/webscr?cmd=_donations&business=EXAMPLE&lc=US"
                                       "&item_name=Dwindledial%20Development&currency_code=USD"));
    EXPECT_TRUE(Timer()._HelpVisitWebsite_Action() && Timer()._HelpDonate_Action() && Timer()._TimerStart_Action());
}

TEST_F(MenuTest, EditItemsActOnTheFocusedField) {
    Timer();
    auto& field = FieldWindow::Instance().Find<EditField>("field");
    ASSERT_TRUE(Eventually([] { return QApplication::focusWidget(); }));
    PassBeforeShortcut();
    for (const Row& row : kRows) {
        if (row.IsEdit()) {
            EXPECT_TRUE(ActionOf(row.name).isEnabled()) << row.name;
        }
    }
    const std::pair<const char*, const char*> steps[] = {
        {"EditSelectAll", "text"}, {"EditCopy", "text"}, {"EditClear", ""}, {"EditPaste", "text"},
        {"EditPaste", "texttext"}, {"EditUndo", "text"}, {"EditUndo", ""},  {"EditUndo", "text"},
        {"EditSelectAll", "text"}, {"EditCut", ""},      {"EditCopy", ""},  {"EditPaste", "text"},
    };
    for (const auto& [command, text] : steps) {
        Choose(command);
        EXPECT_EQ(field.Text(), text) << command;
    }
    FieldWindow::Instance().Close();
    ASSERT_TRUE(Eventually([] { return !QApplication::focusWidget(); }));
    PassBeforeShortcut();
    EXPECT_FALSE(ActionOf("EditPaste").isEnabled());
}

TEST_F(MenuTest, QuitClosesEverythingAndAsksNothing) {
    FieldWindow::Instance();
    StartFrom(60);
    Timer().Color_Clock_Wedge = RGB(0x12, 0x34, 0x56);
    QTimer::singleShot(0, qApp, [] { Choose("FileQuit"); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible()) << window->windowTitle().toStdString();
    EXPECT_THAT(host.messages, ElementsAre());
    std::ifstream file(host.preferencesFolder / "DwindledialPrefs.plist");
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(file), {}), HasSubstr("#123456"));
}

}  // namespace
