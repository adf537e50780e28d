#pragma once

#include <memory>
#include <string>

#include "platform/Window.h"

/// The toolkit's list of open windows, which owns them. Each is found by the key of its class.
namespace open_windows {

void Add(const std::string& key, const std::shared_ptr<Window>& window);
/// Nil when no window of that key is open.
Window* Find(const std::string& key);
/// The window no longer counts; it is destroyed once the event under way is over.
void Remove(const Window& window);
/// Closes each as its user would.
void CloseAll();
/// Destroys all windows at once.
void Clear();

}  // namespace open_windows
