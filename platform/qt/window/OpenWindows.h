#pragma once

#include "platform/Window.h"

/// The list that owns the open windows. Each window is listed under the key of its class.
namespace open_windows {

void Add(const std::string& key, const std::shared_ptr<Window>& window);
/// Returns, on any thread, the open window with that key; nil if there is none.
Window* Find(const std::string& key);
/// Removes a closed window, which is destroyed once no handler is running and the event loop has control.
void Remove(const Window& window);
/// Closes every window and delivers its Close event.
void CloseAll();
/// Destroys all windows, without closing them first.
void DestroyAll();

}  // namespace open_windows
