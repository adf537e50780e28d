#pragma once

#include <QtCore/QSocketNotifier>
#include <QtWidgets/QApplication>
#include <csignal>
#include <functional>
#include <map>
#include <memory>
#include <string>

// Where the toolkit or the system would end the process, it ends as the program has it instead.

/// The application object for `program`, the first of the process's arguments. Without a display the process ends with
/// status 1 and one line on standard error, which begins with `name`; with another fault, status 1 and what Qt says.
std::unique_ptr<QApplication> MakeToolkit(char* program, const std::string& name);

/// Runs `save` when the display is lost, then ends the process where it stands, with status 1. Wants the
/// application object; once.
void OnLostDisplay(std::function<void()> save);

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP), but for those that are ignored already, into
/// a call on the event loop. There is one at a time.
class EndSignals {
  public:
    explicit EndSignals(std::function<void()> asked);
    /// Gives the signals the effect back that they had.
    ~EndSignals();

  private:
    int event_;
    QSocketNotifier notifier_;
    std::map<int, struct sigaction> before_;
};
