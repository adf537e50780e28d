#include <QtGui/QAction>
#include <QtWidgets/QMenuBar>
#include <map>
#include <set>

#include "platform/Controls.h"
#include "shell/AboutWindow.h"
#include "shell/MenuBar1.h"
#include "shell/winHelp.h"
#include "tests/support/TimerWindowTest.h"

namespace {

// The items by their shortcuts, or by their captions where they have none.
const std::set<QString> kAlways = {
    "Ctrl+Q", "Ctrl+R", "Ctrl+F", "Help...", "Donate...", "Visit Website...", "About Dwindledial..."};
const std::set<QString> kWhileStopped = {"Ctrl+,", "Ctrl+M", "Ctrl+T"};

struct FieldWindow final : Window {
    static FieldWindow& Instance() { return ImplicitInstance<FieldWindow>("FieldWindow.FieldWindow"); }
    void CreateControls() override { AddControl<EditField>("field", 0, 0, 100, 22, 1).Text("text"); }
};

class MenuTest : public TimerWindowTest {
  protected:
    static QWidget& Widget() {
        Timer();
        return *WidgetNamed("cvTime").window();
    }

    static std::map<QString, QAction*> Items() {
        std::map<QString, QAction*> items;
        for (QAction* action : Widget().findChildren<QAction*>()) {
            const QString shortcut = action->shortcut().toString();
            if (!action->menu() && !action->isSeparator())
                items[shortcut.isEmpty() ? action->text().remove('&') : shortcut] = action;
        }
        return items;
    }
    static void PassBeforeShortcut() {
        QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_R, Qt::ControlModifier);
        QCoreApplication::sendEvent(&Widget(), &event);
    }
    static void Trigger(const char* name) {
        PassBeforeShortcut();
        Items().at(name)->trigger();
    }
};

TEST_F(MenuTest, EachPassFollowsTheState) {
    MenuBar1::Instance()->Child("TimerStart")->Text("&Start");  // the bar outlives the windows of the other tests
    EXPECT_EQ(Items().at("Ctrl+R")->text(), "Start") << "a window opens with a pass";
    std::vector<std::function<void()>> passes = {PassBeforeShortcut};
    for (const QAction* action : Widget().findChild<QMenuBar*>()->actions())
        passes.emplace_back([menu = action->menu()] { menu->aboutToShow(); });
    for (const auto& pass : passes) {
        for (const auto& [isRunning, isDone, caption] :
             {std::tuple(true, false, "Stop"), {false, true, "Dismiss"}, {false, false, "Start"}}) {
            Timer().IsRunning = isRunning;
            Timer().IsDone = isDone;
            pass();
            EXPECT_EQ(Items().at("Ctrl+R")->text(), caption);
            const bool isStopped = !isRunning && !isDone;
            for (const auto& [name, item] : Items())
                EXPECT_EQ(item->isEnabled(), kAlways.contains(name) || (isStopped && kWhileStopped.contains(name)))
                    << caption << ": " << name.toStdString();
        }
    }
}

TEST_F(MenuTest, CommandsGoToTheirHandlers) {
    Timer().IsDone = true;
    Trigger("Ctrl+R");
    EXPECT_FALSE(Timer().IsDone);
    Trigger("Help...");
    EXPECT_EQ(WidgetNamed("EditField1").window()->windowTitle(), "Help");
    End(winHelp::Instance());
    Trigger("About Dwindledial...");
    EXPECT_TRUE(WidgetNamed("EditAppCredits").isVisible());
    End(AboutWindow::Instance());
    host.calls.clear();
    Trigger("Visit Website...");
    Trigger("Donate...");
    EXPECT_THAT(host.calls, testing::ElementsAre(
                                "ShowURL http://www.example.org",
                                "ShowURL https://www.example.org/cgi-bin/webscr?cmd=_donations&business=EXAMPLE&lc=US"
                                "&item_name=Dwindledial%20Development&currency_code=USD"));
}

TEST_F(MenuTest, EditItemsActOnTheFocusedField) {
    Timer();
    auto& field = FieldWindow::Instance().Find<EditField>("field");
    ASSERT_TRUE(Eventually([] { return QApplication::focusWidget(); }));
    const std::pair<const char*, const char*> rows[] = {{"Ctrl+A", "text"}, {"Ctrl+C", "text"}, {"Delete", ""},
                                                        {"Ctrl+V", "text"}, {"Ctrl+A", "text"}, {"Ctrl+X", ""},
                                                        {"Ctrl+Z", "text"}};
    for (const auto& [command, text] : rows) {
        Trigger(command);
        EXPECT_EQ(field.Text(), text) << command;
    }
    End(FieldWindow::Instance());
}

}  // namespace
