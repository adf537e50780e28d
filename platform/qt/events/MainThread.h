#pragma once

#include <QtCore/QObject>
#include <functional>
#include <string_view>

// Any thread may call these functions. `action` runs on the main thread, unless `context` is destroyed first.

/// Runs an action at once if called on the main thread; otherwise queues it, in the order of the calls.
void OnMainThread(QObject& context, std::function<void()> action);
/// Runs or queues an action that only sets the property of `context` named by `property`, a string literal.
/// The action replaces a queued one for the same property if only actions for properties of `context` were
/// queued since, so that a fast worker doesn't flood the event loop.
void OnMainThread(QObject& context, std::string_view property, std::function<void()> action);

/// Queues an action until the main thread's current event is over, even if called on the main thread.
void AfterThisEvent(QObject& context, const std::function<void()>& action);
