#include "platform/qt/window/MenuBinding.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <utility>

#include "platform/Text.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/window/OpenWindows.h"

namespace {

// The standard commands of the Edit menu, carried out on the text field that has the focus.
using Command = std::function<void(QLineEdit&)>;

// QLineEdit's own del() goes on to the character behind the caret.
void DeleteSelection(QLineEdit& field) {
    if (field.hasSelectedText()) field.del();
}

Command CommandOf(const std::string& itemName) {
    static const std::map<std::string, Command> commands = {
        {"EditUndo", &QLineEdit::undo},   {"EditCut", &QLineEdit::cut},   {"EditCopy", &QLineEdit::copy},
        {"EditPaste", &QLineEdit::paste}, {"EditClear", DeleteSelection}, {"EditSelectAll", &QLineEdit::selectAll},
    };
    const auto command = commands.find(itemName);
    return command == commands.end() ? nullptr : command->second;
}

QLineEdit* FocusedField() { return dynamic_cast<QLineEdit*>(QApplication::focusWidget()); }

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
    QMenu* widget = widget_->addMenu(QString::fromStdString(menu.Text()));
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
    action->setAutoRepeat(false);
    QObject::connect(action, &QAction::triggered, action, [this, item] { Choose(*item); });
    // Of the window too: the shortcuts of a hidden menu bar are dead.
    window_.addAction(action);
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
    return handlers_.contains(item.Name()) || dynamic_cast<const QuitMenuItem*>(&item) ||
           (CommandOf(item.Name()) && FocusedField());
}

// A command may come without a menu or a shortcut, from a screen reader, and then at any time.
void MenuBinding::Choose(const MenuItem& item) {
    PassEnabling();
    if (!item.Enabled() || !window_.isEnabled()) return;
    if (const auto handler = handlers_.find(item.Name()); handler != handlers_.end()) {
        Deliver(handler->second);
    } else if (dynamic_cast<const QuitMenuItem*>(&item)) {
        open_windows::CloseAll();
    } else if (const Command edit = CommandOf(item.Name()); edit && FocusedField()) {
        edit(*FocusedField());
    }
}

void MenuBinding::Sync() {
    for (const Row& row : rows_) {
        row.action->setText(QString::fromStdString(row.item->Text()));
        row.action->setEnabled(row.item->Enabled());
    }
}
