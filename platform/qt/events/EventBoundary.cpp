#include "platform/qt/events/EventBoundary.h"

#include <QtCore/QCoreApplication>
#include <cstdio>
#include <exception>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/Application.h"
#include "platform/Host.h"

namespace {

std::string Describe() {
    try {
        throw;
    } catch (const std::exception& exception) {
        return std::string("Unexpected error: ") + exception.what();
    } catch (...) {
        return "Unexpected error";
    }
}

void Print(const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); }

bool IsNew(const std::string& text) {
    static std::mutex mutex;
    static std::set<std::string> reported;
    const std::lock_guard lock(mutex);
    return reported.insert(text).second;
}

/// Handlers within handlers: one may wait for a dialog, whose own come meanwhile.
thread_local int handlersUnderWay = 0;
thread_local std::vector<std::function<void()>> postponed;

}  // namespace

HandlerUnderWay::HandlerUnderWay() { ++handlersUnderWay; }

HandlerUnderWay::~HandlerUnderWay() {
    if (--handlersUnderWay > 0) return;
    for (const auto& action : std::exchange(postponed, {}))
        action();
}

void AfterHandlers(std::function<void()> action) {
    if (handlersUnderWay == 0) return action();
    postponed.push_back(std::move(action));
}

// The box waits for the event to be over: a paint event can't have an event loop within it.
void ReportUncaught() {
    const std::string text = Describe();
    if (!IsNew(text)) return;
    Print(text);
    QMetaObject::invokeMethod(
        qApp,
        [text] {
            const std::string name = QCoreApplication::applicationName().toStdString();
            Deliver([&] { MsgBox(text + ".\n\n" + name + " goes on."); });
        },
        Qt::QueuedConnection);
}

void QuitOnUncaught() {
    Print(Describe());
    Quit(1);
}
