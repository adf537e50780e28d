#pragma once

#include <functional>
#include <type_traits>

// Exceptions don't propagate from event handlers to Qt: they are reported, the event is abandoned, and the
// program continues. So a fault in one window doesn't end a running count-down.

/// Reports the exception being handled: prints a line on standard error and, after the current event, shows a
/// message box. Doesn't report a line that it has printed before. May be called on any thread.
void ReportUncaught();
/// Prints the exception being handled on standard error and quits with status 1, at start-up and on closing.
void QuitOnUncaught();

/// Runs an action as soon as no handler is running, at once if none is running now. Main thread only.
void AfterHandlers(std::function<void()> action);

/// While an object of this class lives, a handler counts as running on its thread.
class HandlerUnderWay {
  public:
    HandlerUnderWay();
    ~HandlerUnderWay();
    HandlerUnderWay(const HandlerUnderWay&) = delete;
    HandlerUnderWay& operator=(const HandlerUnderWay&) = delete;
};

/// Runs a handler and reports what it throws. Returns its result; a default value if it throws or is empty.
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
