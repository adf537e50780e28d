#pragma once

#include <string>

/// The standard commands of the Edit menu, which the toolkit carries out on the text field that has the focus.
namespace edit_commands {

/// Whether a field has the focus that takes the command of this item.
bool IsAvailable(const std::string& itemName);
void Run(const std::string& itemName);

}  // namespace edit_commands
