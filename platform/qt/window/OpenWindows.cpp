#include "platform/qt/window/OpenWindows.h"

#include <QtCore/QCoreApplication>
#include <algorithm>
#include <mutex>
#include <vector>

#include "platform/qt/events/EventBoundary.h"

namespace open_windows {
namespace {

struct Entry {
    std::string key;
    std::shared_ptr<Window> window;
};
/// Guards `entries`, because workers look up windows too.
std::mutex mutex;
std::vector<Entry> entries;

/// Keeps a closed window alive until the event loop has control again.
struct LastReference final : QObject {
    explicit LastReference(std::shared_ptr<Window> closed) : window(std::move(closed)) {}
    std::shared_ptr<Window> window;
};

}  // namespace

void Add(const std::string& key, const std::shared_ptr<Window>& window) {
    const std::lock_guard lock(mutex);
    entries.push_back({key, window});
}

Window* Find(const std::string& key) {
    const std::lock_guard lock(mutex);
    const auto entry = std::ranges::find(entries, key, &Entry::key);
    return entry == entries.end() ? nullptr : entry->window.get();
}

void Remove(const Window& window) {
    const std::lock_guard lock(mutex);
    const auto isIts = [&window](const Entry& entry) { return entry.window.get() == &window; };
    const auto entry = std::ranges::find_if(entries, isIts);
    if (entry == entries.end()) return;
    AfterHandlers([closed = std::move(entry->window)] { (new LastReference(closed))->deleteLater(); });
    entries.erase(entry);
}

void CloseAll() {
    std::unique_lock lock(mutex);
    const std::vector<Entry> open = entries;
    lock.unlock();  // closing a window calls Remove, which locks the mutex
    for (const Entry& entry : open)
        entry.window->Close();
}

void DestroyAll() {
    std::unique_lock lock(mutex);
    std::vector<Entry> last = std::exchange(entries, {});
    lock.unlock();  // destroying a window may wait for a worker that calls Find
    for (Entry& entry : last)
        entry.window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace open_windows
