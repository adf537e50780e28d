#include "platform/qt/events/MainThread.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <deque>
#include <mutex>
#include <utility>

#include "platform/qt/events/EventBoundary.h"

namespace {

struct Entry {
    QPointer<QObject> context;
    std::function<void()> action;
    std::string_view property;
};

std::mutex mutex;
std::deque<Entry> waiting;

/// Runs the queued actions upon an event, which is empty because ThreadSanitizer can't see Qt's queue lock.
class Receiver final : public QObject {
  public:
    Receiver() { moveToThread(qApp->thread()); }

  protected:
    void customEvent(QEvent*) override {
        std::unique_lock lock(mutex);
        const std::deque<Entry> due = std::exchange(waiting, {});
        lock.unlock();
        for (const Entry& entry : due) {
            if (entry.context) Deliver(entry.action);
        }
    }
};

/// Returns the queued entry that a new action may replace; nil if there is none.
Entry* Replaceable(const QObject& context, std::string_view property) {
    for (auto entry = waiting.rbegin(); entry != waiting.rend(); ++entry) {
        if (property.empty() || entry->property.empty() || entry->context != &context) return nullptr;
        if (entry->property == property) return &*entry;
    }
    return nullptr;
}

}  // namespace

void OnMainThread(QObject& context, std::function<void()> action) { OnMainThread(context, {}, std::move(action)); }

void OnMainThread(QObject& context, std::string_view property, std::function<void()> action) {
    if (QThread::currentThread() == qApp->thread()) return action();
    const std::lock_guard lock(mutex);
    if (Entry* entry = Replaceable(context, property)) {
        entry->action = std::move(action);
        return;
    }
    waiting.push_back({&context, std::move(action), property});
    static Receiver receiver;
    if (waiting.size() == 1) QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
}

void AfterThisEvent(QObject& context, const std::function<void()>& action) {
    QMetaObject::invokeMethod(&context, action, Qt::QueuedConnection);
}
