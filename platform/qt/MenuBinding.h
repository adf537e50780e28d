#pragma once

#include <QtGui/QAction>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <functional>
#include <vector>

#include "platform/Menu.h"

/// Shows a MenuBar in a window.
class MenuBinding {
  public:
    /// `enable` is called before a menu opens, and is to end with Sync(); `choose` when an item is chosen. The widgets
    /// belong to `window`.
    MenuBinding(Ref<MenuBar> bar, QWidget& window, std::function<void()> enable,
                std::function<void(const MenuItem&)> choose);

    const Ref<MenuBar>& Bar() const { return bar_; }
    QMenuBar& Widget() { return *widget_; }

    /// Brings captions and enabled states in line with the items.
    void Sync();

  private:
    void AddMenu(const MenuItem& menu);
    void AddItem(QMenu& menu, const Ref<MenuItem>& item);

    struct Row {
        Ref<MenuItem> item;
        QAction* action;
    };

    Ref<MenuBar> bar_;
    QWidget& window_;
    QMenuBar* widget_;
    std::function<void()> enable_;
    std::function<void(const MenuItem&)> choose_;
    std::vector<Row> rows_;
};
