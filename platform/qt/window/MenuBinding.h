#pragma once

#include <QtGui/QShortcut>
#include <QtWidgets/QMenuBar>
#include <map>

#include "platform/Window.h"

/// Shows a MenuBar in a window. A command goes to the handler that is registered under the item's name; a
/// command to edit or to quit that has none is carried out here.
class MenuBinding {
  public:
    using Handlers = std::map<std::string, Window::MenuHandler>;

    /// `handlers` are the window's, by item name; more may come. `enableItems` runs in each enabling pass.
    MenuBinding(const Ref<MenuBar>& bar, QWidget& window, const Handlers& handlers,
                const std::function<void()>& enableItems);

    const Ref<MenuBar>& Bar() const { return bar_; }
    QMenuBar& Widget() { return *widget_; }
    /// The command that quits, for dialogs over the window to offer as well; nil if the bar has none.
    QAction* Quit() const { return quit_; }

    /// A hidden bar shows while a menu is open. F10 opens the first menu, Alt with a menu's letter opens that one.
    void SetVisible(bool on);
    /// Updates which items are enabled, and their captions. Must be called before a shortcut is looked up.
    void UpdateEnabled();

  private:
    void AddMenu(const MenuItem& menu);
    void AddItem(QMenu& menu, const Ref<MenuItem>& item);
    void Trigger(const MenuItem& item);
    void Sync();
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
