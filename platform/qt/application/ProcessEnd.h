#pragma once

#include <QtWidgets/QApplication>
#include <functional>
#include <memory>
#include <string>

/// Creates the application object. `program` is argv[0]. Without a display, prints a line that begins with
/// `name` on standard error and exits with status 1. If Qt aborts for another reason, prints Qt's messages.
std::unique_ptr<QApplication> MakeQApplication(char* program, const std::string& name);

/// Runs `save` once and ends the process with status 1 if the display is lost. Needs an application object.
void OnLostDisplay(std::function<void()> save);

/// Calls `asked` from the event loop upon SIGTERM, SIGINT or SIGHUP, as long as the application object lives.
/// A signal that was ignored when the process started stays ignored.
void OnEndSignals(const std::function<void()>& asked);
