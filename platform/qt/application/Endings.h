#pragma once

#include <QtWidgets/QApplication>
#include <functional>
#include <memory>
#include <string>

// Where the toolkit or the system would end the process, it ends as the program has it instead.

/// The application object for `program`, the first of the process's arguments. Without a display the process ends with
/// status 1 and one line on standard error, which begins with `name`; with another fault, status 1 and what Qt says.
std::unique_ptr<QApplication> MakeToolkit(char* program, const std::string& name);

/// Runs `save` when the display is lost, then ends the process with status 1. Wants the application object; once.
void OnLostDisplay(std::function<void()> save);

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP), but for those that are ignored already, into
/// a call on the event loop, as long as the application object lives.
void OnEndSignals(const std::function<void()>& asked);
