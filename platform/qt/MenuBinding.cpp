#include "platform/qt/MenuBinding.h"

#include "platform/Text.h"

MenuBinding::MenuBinding(Ref<MenuBar> bar, QWidget& window, std::function<void()> enable,
                         std::function<void(const MenuItem&)> choose)
    : bar_(std::move(bar)),
      window_(window),
      widget_(new QMenuBar(&window)),
      enable_(std::move(enable)),
      choose_(std::move(choose)) {
    widget_->setNativeMenuBar(false);
    widget_->setAutoFillBackground(true);  // in fullscreen it lies over the controls
    widget_->setCursor(Qt::ArrowCursor);
    for (const Ref<MenuItem>& menu : bar_->Children())
        AddMenu(*menu);
    Sync();
}

void MenuBinding::AddMenu(const MenuItem& menu) {
    QMenu* widget = widget_->addMenu(QString::fromStdString(menu.Text()));
    QObject::connect(widget, &QMenu::aboutToShow, widget, enable_);
    for (const Ref<MenuItem>& item : menu.Children())
        AddItem(*widget, item);
}

void MenuBinding::AddItem(QMenu& menu, const Ref<MenuItem>& item) {
    if (item->Text() == "-") {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(QString());
    action->setMenuRole(QAction::NoRole);
    action->setShortcut(QKeySequence(QString::fromStdString(Replace(item->KeyboardShortcut(), "Cmd+", "Ctrl+"))));
    QObject::connect(action, &QAction::triggered, action, [this, item] { choose_(*item); });
    // Of the window too: the shortcuts of a hidden menu bar are dead.
    window_.addAction(action);
    rows_.push_back({item, action});
}

void MenuBinding::Sync() {
    for (const Row& row : rows_) {
        row.action->setText(QString::fromStdString(row.item->Text()));
        row.action->setEnabled(row.item->Enabled());
    }
}
