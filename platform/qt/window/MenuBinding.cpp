#include "platform/qt/window/MenuBinding.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <utility>

#include "platform/Text.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/window/OpenWindows.h"

namespace {

/// Escape closes it for good. Qt would leave the keys with the bar, where Return opens a menu again.
class Menu final : public QMenu {
  public:
    using QMenu::QMenu;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        QMenu::keyPressEvent(event);
        if (event->key() == Qt::Key_Escape) parentWidget()->window()->setFocus();
    }
};

bool IsQuit(const MenuItem& item) { return dynamic_cast<const QuitMenuItem*>(&item); }

QLineEdit* FocusedField() { return dynamic_cast<QLineEdit*>(QApplication::focusWidget()); }

void Edit(QLineEdit& field, EditCommands command) {
    switch (command) {
        case EditCommands::Undo:
            return field.undo();
        case EditCommands::Cut:
            return field.cut();
        case EditCommands::Copy:
            return field.copy();
        case EditCommands::Paste:
            return field.paste();
        case EditCommands::Clear:  // del() goes on to the character behind the caret
            return field.hasSelectedText() ? field.del() : void();
        case EditCommands::SelectAll:
            return field.selectAll();
        case EditCommands::None:
            return;
    }
}

}  // namespace

MenuBinding::MenuBinding(Ref<MenuBar> bar, QWidget& window, const Handlers& handlers, std::function<void()> enableItems)
    : bar_(std::move(bar)),
      window_(window),
      widget_(std::make_unique<QMenuBar>(&window)),
      handlers_(handlers),
      enableItems_(std::move(enableItems)) {
    widget_->setAutoFillBackground(true);  // in fullscreen it lies over the controls
    widget_->setCursor(Qt::ArrowCursor);
    for (const Ref<MenuItem>& menu : bar_->Children())
        AddMenu(*menu);
    Sync();
}

void MenuBinding::AddMenu(const MenuItem& menu) {
    auto* widget = new Menu(QString::fromStdString(menu.Text()), widget_.get());
    widget_->addMenu(widget);
    QObject::connect(widget, &QMenu::aboutToShow, widget, [this] { PassEnabling(); });
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
    QObject::connect(action, &QAction::triggered, action, [this, item] { Choose(*item); });
    // Of the window too: the shortcuts of a hidden menu bar are dead.
    window_.addAction(action);
    if (IsQuit(*item)) {
        action->setShortcutContext(Qt::ApplicationShortcut);  // also from windows without a menu bar
        quit_ = action;
    }
    rows_.push_back({item, action});
}

void MenuBinding::PassEnabling() {
    for (const Row& row : rows_) {
        row.item->Disable();
        if (row.item->AutoEnable() && IsTaken(*row.item)) row.item->Enable();
    }
    Deliver(enableItems_);
    Sync();
}

bool MenuBinding::IsTaken(const MenuItem& item) const {
    return handlers_.contains(item.Name()) || IsQuit(item) ||
           (item.EditCommand() != EditCommands::None && FocusedField());
}

// From a screen reader a command may come at any time, also under a dialog, which only quitting gets past.
void MenuBinding::Choose(const MenuItem& item) {
    PassEnabling();
    const bool isUnderDialog = !window_.isEnabled() || QApplication::activeModalWidget();
    if (!item.Enabled() || (isUnderDialog && !IsQuit(item))) return;
    if (const auto handler = handlers_.find(item.Name()); handler != handlers_.end()) {
        Deliver(handler->second);
    } else if (IsQuit(item)) {
        open_windows::CloseAll();
    } else if (QLineEdit* field = FocusedField()) {
        Edit(*field, item.EditCommand());
    }
}

void MenuBinding::Sync() {
    for (const Row& row : rows_) {
        row.action->setText(QString::fromStdString(row.item->Text()));
        row.action->setEnabled(row.item->Enabled());
    }
}
