#include <gmock/gmock.h>

#include <QtGui/QAction>
#include <QtWidgets/QMenuBar>
#include <map>
#include <set>
#include <string>

#include "platform/Controls.h"
#include "shell/MenuBar1.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

const std::set<QString> kEdit = {"Ctrl+Z", "Ctrl+X", "Ctrl+C", "Ctrl+V", "Delete", "Ctrl+A"};
const std::set<QString> kWhileStopped = {"Ctrl+,", "Ctrl+M", "Ctrl+T"};
const std::set<QString> kAlways = {
    "Ctrl+Q", "Ctrl+R", "Ctrl+F", "Help...", "Donate...", "Visit Website...", "About Dwindledial..."};

struct FieldWindow final : Window {
    static FieldWindow& Instance() { return ImplicitInstance<FieldWindow>("FieldWindow.FieldWindow"); }
    void CreateControls() override { AddControl<EditField>("field", 0, 0, 100, 22, 1).Text("text"); }
};

class MenuTest : public TimerWindowTest {
  protected:
    static QWidget& Widget() { return *(Timer(), WidgetNamed("cvTime").window()); }

    /// The items by their shortcuts, or by their captions where they have none.
    static std::map<QString, QAction*> Items() {
        std::map<QString, QAction*> items;
        for (QAction* action : Widget().findChildren<QAction*>()) {
            if (action->menu() || action->isSeparator()) continue;
            const QString shortcut = action->shortcut().toString();
            EXPECT_TRUE(items.emplace(shortcut.isEmpty() ? action->text().remove('&') : shortcut, action).second);
        }
        return items;
    }
    static void PassBeforeShortcut() {
        QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_R, Qt::ControlModifier);
        QCoreApplication::sendEvent(&Widget(), &event);
    }
    static void Choose(const char* name) {
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
    ASSERT_EQ(passes.size(), 6U);
    for (const auto& pass : passes) {
        for (const auto& [isRunning, isDone, caption] :
             {std::tuple(true, false, "Stop"), {false, true, "Dismiss"}, {false, false, "Start"}}) {
            SCOPED_TRACE(caption);
            Timer().IsRunning = isRunning;
            Timer().IsDone = isDone;
            pass();
            EXPECT_EQ(Items().at("Ctrl+R")->text(), caption);
            for (const auto& [name, item] : Items()) {
                EXPECT_EQ(kEdit.count(name) + kWhileStopped.count(name) + kAlways.count(name), 1U);
                EXPECT_EQ(item->isEnabled(),
                          kAlways.contains(name) || (kWhileStopped.contains(name) && !isRunning && !isDone))
                    << name.toStdString();
            }
        }
    }
}

TEST_F(MenuTest, CommandsGoToTheirHandlers) {
    Timer().CurrentSeconds = 60;
    Choose("Ctrl+R");
    EXPECT_TRUE(Timer().IsRunning);
    Choose("Ctrl+T");  // disabled
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Choose("Ctrl+R");
    EXPECT_FALSE(Timer().IsRunning);
    Choose("Ctrl+F");
    EXPECT_TRUE(Timer().FullScreen());
    host.calls.clear();
    Choose("Visit Website...");
    Choose("Donate...");
    EXPECT_THAT(host.calls,
                ElementsAre("ShowURL http://www.example.org",
                            "ShowURL https://www.example.org/cgi-bin/webscr?cmd=_donations&business=EXAMPLE&lc=US"
                            "&item_name=Dwindledial%20Development&currency_code=USD"));
}

TEST_F(MenuTest, EditItemsActOnTheFocusedField) {
    Timer();
    auto& field = FieldWindow::Instance().Find<EditField>("field");
    ASSERT_TRUE(Eventually([] { return QApplication::focusWidget(); }));
    PassBeforeShortcut();
    for (const auto& name : kEdit)
        EXPECT_TRUE(Items().at(name)->isEnabled()) << name.toStdString();
    for (const auto& [command, text] : {std::pair("Ctrl+A", "text"),
                                        {"Ctrl+C", "text"},
                                        {"Delete", ""},
                                        {"Delete", ""},
                                        {"Ctrl+V", "text"},
                                        {"Ctrl+V", "texttext"},
                                        {"Ctrl+Z", "text"},
                                        {"Ctrl+A", "text"},
                                        {"Ctrl+X", ""},
                                        {"Ctrl+V", "text"}}) {
        Choose(command);
        EXPECT_EQ(field.Text(), text) << command;
    }
    FieldWindow::Instance().Close();
    ASSERT_TRUE(Eventually([] { return !QApplication::focusWidget(); }));
    PassBeforeShortcut();
    EXPECT_FALSE(Items().at("Ctrl+V")->isEnabled());
}

}  // namespace
