#pragma once

#include "platform/Window.h"

/// The list of open windows, which owns them. A window is found by the key of its class.
namespace open_windows {

void Add(const std::string& key, const std::shared_ptr<Window>& window);
/// The open window of that key; nil if there is none.
Window* Find(const std::string& key);
/// Takes a window that has closed off the list. It is destroyed once the event under way is over.
void Remove(const Window& window);
/// Closes every window as its user would.
void CloseAll();
/// Destroys all windows, without closing them first.
void DestroyAll();

}  // namespace open_windows
