#include "platform/qt/window/OpenWindows.h"

#include <QtCore/QCoreApplication>
#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/qt/events/EventBoundary.h"

namespace open_windows {
namespace {

struct Entry {
    std::string key;
    std::shared_ptr<Window> window;
};
/// Workers look windows up as well, so every use is guarded.
std::mutex mutex;
std::vector<Entry> entries;

/// Holds a closed window until the event loop has taken back control.
struct LastReference final : QObject {
    explicit LastReference(std::shared_ptr<Window> closed) : window(std::move(closed)) {}
    std::shared_ptr<Window> window;
};

std::vector<Entry> All() {
    const std::lock_guard lock(mutex);
    return entries;
}

}  // namespace

void Add(const std::string& key, const std::shared_ptr<Window>& window) {
    const std::lock_guard lock(mutex);
    entries.push_back({key, window});
}

Window* Find(const std::string& key) {
    const std::lock_guard lock(mutex);
    const auto entry = std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.key == key; });
    return entry == entries.end() ? nullptr : entry->window.get();
}

void Remove(const Window& window) {
    const std::lock_guard lock(mutex);
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.window.get() == &window; });
    if (entry == entries.end()) return;
    AfterHandlers([closed = std::move(entry->window)] { (new LastReference(closed))->deleteLater(); });
    entries.erase(entry);
}

void CloseAll() {
    for (const Entry& entry : All())
        entry.window->Close();
}

void Clear() {
    std::vector<Entry> last;
    {
        const std::lock_guard lock(mutex);
        last.swap(entries);
    }
    // Ending a window may wait for a worker that looks for another one here, so it is done unlocked.
    for (Entry& entry : last)
        entry.window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace open_windows
