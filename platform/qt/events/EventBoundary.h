#pragma once

#include <functional>
#include <type_traits>

// Each delivery of an event to the program is a boundary for exceptions: what a handler throws is reported,
// the event is abandoned, and the program goes on. So a fault in one window doesn't end a running count-down.

/// Reports the exception being handled: one line on standard error and, once this event is over, one message
/// box. A line that has been printed before is not reported again. May be called on any thread.
void ReportUncaught();
/// Reports it on standard error alone and ends the program with status 1: at start-up and while closing.
void QuitOnUncaught();

/// Runs an action as soon as no handler is under way, which may be at once. Main thread.
void AfterHandlers(std::function<void()> action);

/// Counts a handler that is under way on this thread.
class HandlerUnderWay {
  public:
    HandlerUnderWay();
    ~HandlerUnderWay();
    HandlerUnderWay(const HandlerUnderWay&) = delete;
    HandlerUnderWay& operator=(const HandlerUnderWay&) = delete;
};

/// Runs a handler, unless it is an empty std::function. Returns its result, or else a default one.
template <class Handler, class... Arguments>
auto Deliver(const Handler& handler, const Arguments&... arguments) {
    using Result = std::invoke_result_t<const Handler&, const Arguments&...>;
    if constexpr (requires { handler.target_type(); }) {
        if (!handler) return Result();
    }
    const HandlerUnderWay underWay;
    try {
        return handler(arguments...);
    } catch (...) {
        ReportUncaught();
    }
    return Result();
}
