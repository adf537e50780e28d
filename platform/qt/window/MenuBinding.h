#pragma once

#include <QtGui/QAction>
#include <QtGui/QShortcut>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Menu.h"
#include "platform/Window.h"

/// Shows a MenuBar in a window. Its commands go to the handlers of the items' names, or to the toolkit's own.
class MenuBinding {
  public:
    using Handlers = std::map<std::string, Window::MenuHandler>;

    /// `handlers` are the window's, by item name; `enableItems` is its part in each enabling pass.
    MenuBinding(Ref<MenuBar> bar, QWidget& window, const Handlers& handlers, std::function<void()> enableItems);

    const Ref<MenuBar>& Bar() const { return bar_; }
    QMenuBar& Widget() { return *widget_; }
    /// The command that quits, for the dialogs over the window to take as well; nil if the bar has none.
    QAction* Quit() const { return quit_; }

    /// Where the bar is hidden, F10 and Alt with a menu's letter show it for as long as a menu is open.
    void SetVisible(bool on);
    /// Settles anew which items are enabled and how they read. To be called before a shortcut is looked up.
    void UpdateEnabled();

  private:
    void AddMenu(const MenuItem& menu);
    void AddItem(QMenu& menu, const Ref<MenuItem>& item);
    bool HasReceiver(const MenuItem& item) const;
    void Trigger(const MenuItem& item);
    void Sync();
    void MenuHasClosed();
    void Open(QAction& menu);

    struct Row {
        Ref<MenuItem> item;
        QAction* action;
    };

    Ref<MenuBar> bar_;
    QWidget& window_;
    std::unique_ptr<QMenuBar> widget_;
    const Handlers& handlers_;
    std::function<void()> enableItems_;
    std::vector<Row> rows_;
    QAction* quit_ = nullptr;
    bool isVisible_ = true;
    std::vector<QShortcut*> accessKeys_;
};
