#pragma once

#include <QtGui/QShortcut>
#include <QtWidgets/QMenuBar>
#include <map>

#include "platform/Window.h"

/// Shows a MenuBar in a window. A command runs the handler that is registered under the item's name. Without
/// a handler, this class carries out the edit commands and Quit itself.
class MenuBinding {
  public:
    using Handlers = std::map<std::string, Window::MenuHandler>;

    /// Keeps a reference to the window's `handlers`, which may grow. UpdateEnabled runs `enableItems`.
    MenuBinding(const Ref<MenuBar>& bar, QWidget& window, const Handlers& handlers,
                const std::function<void()>& enableItems);

    const Ref<MenuBar>& Bar() const { return bar_; }
    QMenuBar& Widget() { return *widget_; }
    /// Returns the Quit command, which dialogs over the window offer as well; nil if the bar has none.
    QAction* Quit() const { return quit_; }

    /// Shows or hides the bar. F10 or a menu's access key opens a menu and shows a hidden bar meanwhile.
    void SetVisible(bool on);
    /// Updates the enabled state and the caption of each item. Must be called before Qt looks up a shortcut.
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
