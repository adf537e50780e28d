#pragma once

#include <QtCore/QSocketNotifier>
#include <functional>

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a call on the event loop. There is one
/// at a time.
class EndSignals {
  public:
    explicit EndSignals(std::function<void()> asked);
    /// Gives the signals their default effect back.
    ~EndSignals();

  private:
    int event_;
    QSocketNotifier notifier_;
};
