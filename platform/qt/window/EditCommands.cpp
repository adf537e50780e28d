#include "platform/qt/window/EditCommands.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <functional>
#include <map>

namespace edit_commands {
namespace {

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

bool IsAvailable(const std::string& itemName) { return CommandOf(itemName) && FocusedField(); }

void Run(const std::string& itemName) {
    if (IsAvailable(itemName)) CommandOf(itemName)(*FocusedField());
}

}  // namespace edit_commands
