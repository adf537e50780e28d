#pragma once

#include <QtGui/QAction>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Menu.h"
#include "platform/Window.h"

/// Shows a MenuBar in a window and routes its commands: to the handler registered under the item's name, or to the
/// toolkit itself, which quits and edits.
class MenuBinding {
  public:
    /// `enableItems` is the window's part in each enabling pass. The widgets belong to `window`.
    MenuBinding(Ref<MenuBar> bar, QWidget& window, std::function<void()> enableItems);

    const Ref<MenuBar>& Bar() const { return bar_; }
    QMenuBar& Widget() { return *widget_; }

    void AddHandler(const std::string& itemName, Window::MenuHandler handler);

    /// Settles anew which items are enabled and how they read. To be called before a shortcut is looked up; before a
    /// menu opens, it is done here.
    void PassEnabling();

  private:
    void AddMenu(const MenuItem& menu);
    void AddItem(QMenu& menu, const Ref<MenuItem>& item);
    bool IsTaken(const MenuItem& item) const;
    void Choose(const MenuItem& item);
    void Sync();

    struct Row {
        Ref<MenuItem> item;
        QAction* action;
    };

    Ref<MenuBar> bar_;
    QWidget& window_;
    QMenuBar* widget_;
    std::function<void()> enableItems_;
    std::map<std::string, Window::MenuHandler> handlers_;
    std::vector<Row> rows_;
};
