#include "platform/qt/events/EventBoundary.h"

#include <QtCore/QCoreApplication>
#include <cstdio>
#include <mutex>
#include <set>
#include <vector>

#include "platform/Application.h"
#include "platform/Host.h"
#include "platform/qt/events/MainThread.h"

namespace {

/// The texts that report an exception.
struct Report {
    std::string line;
    /// The text for the user, without names from the code.
    std::string message;
};

Report Describe() {
    const std::string unexpected = "Unexpected error";
    try {
        throw;
    } catch (const NilObjectException& exception) {
        const std::string& why = exception.Why();
        return {unexpected + ": " + exception.what(), why.empty() ? unexpected + "." : why};
    } catch (const std::bad_alloc& exception) {
        return {unexpected + ": " + exception.what(), "There isn't enough memory."};
    } catch (const std::exception& exception) {
        const std::string line = unexpected + ": " + exception.what();
        return {line, line + "."};
    } catch (...) {
        return {unexpected, unexpected + "."};
    }
}

void Print(const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); }

bool IsNew(const std::string& text) {
    static std::mutex mutex;
    static std::set<std::string> reported;
    const std::lock_guard lock(mutex);
    return reported.insert(text).second;
}

/// The number of running handlers: several while a handler waits for a modal dialog, whose handlers run too.
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

// The box is shown after the event, because its event loop must not run within a paint event.
void ReportUncaught() {
    const Report report = Describe();
    if (!IsNew(report.line)) return;
    Print(report.line);
    AfterThisEvent(*qApp, [message = report.message] {
        const std::string name = QCoreApplication::applicationName().toStdString();
        Deliver([&] { MsgBox(message + "\n\n" + name + " goes on."); });
    });
}

void QuitOnUncaught() {
    Print(Describe().line);
    Quit(1);
}
