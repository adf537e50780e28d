#pragma once

/// Keys as they are held now, whatever event is being handled.
namespace Keyboard {

/// Ctrl.
bool AsyncCommandKey();
/// Alt; Shift as well, since many window managers keep Alt with the pointer for themselves.
bool AsyncOptionKey();

}  // namespace Keyboard
