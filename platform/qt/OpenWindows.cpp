#include "platform/qt/OpenWindows.h"

#include <QtCore/QCoreApplication>
#include <algorithm>

namespace open_windows {
namespace {

struct Entry {
    std::string key;
    std::shared_ptr<Window> window;
};
std::vector<Entry> entries;

/// Holds a closed window until the event loop that runs now has taken back control.
struct LastReference final : QObject {
    explicit LastReference(std::shared_ptr<Window> closed) : window(std::move(closed)) {}
    std::shared_ptr<Window> window;
};

}  // namespace

void Add(const std::string& key, const std::shared_ptr<Window>& window) { entries.push_back({key, window}); }

Window* Find(const std::string& key) {
    const auto entry = std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.key == key; });
    return entry == entries.end() ? nullptr : entry->window.get();
}

void Remove(const Window& window) {
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.window.get() == &window; });
    if (entry == entries.end()) return;
    (new LastReference(std::move(entry->window)))->deleteLater();
    entries.erase(entry);
}

std::vector<std::shared_ptr<Window>> All() {
    std::vector<std::shared_ptr<Window>> windows;
    windows.reserve(entries.size());
    for (const Entry& entry : entries)
        windows.push_back(entry.window);
    return windows;
}

void Clear() {
    entries.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace open_windows
