#include "platform/qt/window/MenuBinding.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <algorithm>

#include "platform/Text.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/window/OpenWindows.h"

namespace {

/// Returns the focus to the window on Escape. Qt would leave it on the menu bar, where Return opens a menu.
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
    if (command == EditCommands::Undo) field.undo();
    if (command == EditCommands::Cut) field.cut();
    if (command == EditCommands::Copy) field.copy();
    if (command == EditCommands::Paste) field.paste();
    // Without a selection, del() would delete the next character.
    if (command == EditCommands::Clear && field.hasSelectedText()) field.del();
    if (command == EditCommands::SelectAll) field.selectAll();
}

}  // namespace

MenuBinding::MenuBinding(const Ref<MenuBar>& bar, QWidget& window, const Handlers& handlers,
                         const std::function<void()>& enableItems)
    : bar_(bar),
      window_(window),
      widget_(std::make_unique<QMenuBar>(&window)),
      handlers_(handlers),
      enableItems_(enableItems) {
    widget_->setAutoFillBackground(true);  // in fullscreen the bar lies over the controls
    widget_->setCursor(Qt::ArrowCursor);
    for (const Ref<MenuItem>& menu : bar_->Children())
        AddMenu(*menu);
    new QShortcut(Qt::Key_F10, &window_, [this] { Open(*widget_->actions().front()); });
    Sync();
}

void MenuBinding::AddMenu(const MenuItem& menu) {
    auto* widget = new Menu(ToQString(menu.Text()), widget_.get());
    QAction* action = widget_->addMenu(widget);
    QObject::connect(widget, &QMenu::aboutToShow, widget, [this] { UpdateEnabled(); });
    // The connection is queued, because the arrow keys close one menu before they open the next.
    const auto hasClosed = [this] { SetVisible(isVisible_); };
    QObject::connect(widget, &QMenu::aboutToHide, widget, hasClosed, Qt::QueuedConnection);
    const QKeySequence accessKey = QKeySequence::mnemonic(action->text());
    accessKeys_.push_back(new QShortcut(accessKey, &window_, [this, action] { Open(*action); }));
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
    action->setShortcut(QKeySequence(ToQString(Replace(item->KeyboardShortcut(), "Cmd+", "Ctrl+"))));
    QObject::connect(action, &QAction::triggered, action, [this, item] { Trigger(*item); });
    // The action is added to the window too, because Qt ignores the shortcuts of a hidden menu bar.
    window_.addAction(action);
    if (IsQuit(*item)) {
        action->setShortcutContext(Qt::ApplicationShortcut);  // also in windows without a menu bar
        quit_ = action;
    }
    rows_.push_back({item, action});
}

void MenuBinding::SetVisible(bool on) {
    isVisible_ = on;
    const auto isOpen = [](const QAction* menu) { return menu->menu()->isVisible(); };
    widget_->setVisible(on || std::ranges::any_of(widget_->actions(), isOpen));
    for (QShortcut* key : accessKeys_)
        key->setEnabled(widget_->isHidden());  // a visible bar handles these keys itself
}

// Also selects the first command, as a visible bar does when an access key is pressed.
void MenuBinding::Open(QAction& menu) {
    widget_->show();
    widget_->setActiveAction(&menu);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(menu.menu(), &down);
}

void MenuBinding::UpdateEnabled() {
    for (const Row& row : rows_) {
        MenuItem& item = *row.item;
        const bool isEdit = item.EditCommand() != EditCommands::None && FocusedField();
        const bool hasReceiver = handlers_.contains(item.Name()) || IsQuit(item) || isEdit;
        item.Disable();
        if (item.AutoEnable() && hasReceiver) item.Enable();
    }
    Deliver(enableItems_);
    Sync();
}

// A screen reader can trigger a command even while a dialog blocks the window; only Quit is carried out then.
void MenuBinding::Trigger(const MenuItem& item) {
    UpdateEnabled();
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
        row.action->setText(ToQString(row.item->Text()));
        row.action->setEnabled(row.item->Enabled());
    }
}
