#pragma once

#include <QtWidgets/QApplication>
#include <functional>
#include <memory>
#include <string>

// Replaces what Qt and the system do when the process has to end.

/// The application object for `program`, the first of the process's arguments. Without a display the process
/// ends with status 1 and one line on standard error, which begins with `name`. If Qt aborts for another
/// reason, its own messages are printed.
std::unique_ptr<QApplication> MakeQApplication(char* program, const std::string& name);

/// From now on, a lost display runs `save` once, then ends the process with status 1. Needs an application object.
void OnLostDisplay(std::function<void()> save);

/// As long as the application object lives, calls `asked` on the event loop when a signal asks the program to
/// end: SIGTERM, SIGINT or SIGHUP. A signal that was ignored when the process started stays ignored.
void OnEndSignals(const std::function<void()>& asked);
