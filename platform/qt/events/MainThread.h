#pragma once

#include <QtCore/QObject>
#include <functional>
#include <string_view>

// Any thread may call these. The action runs on the main one, or is dropped if `context` has gone by then.

/// At once when called on the main thread, otherwise soon, in the order of the calls.
void OnMainThread(QObject& context, std::function<void()> action);
/// The same for an action that only sets a property of `context`, which `property`, a literal, names. If the
/// queue ends in property changes of `context` and one sets the same property, the new one replaces it, so
/// that a fast worker doesn't flood the event loop.
void OnMainThread(QObject& context, std::string_view property, std::function<void()> action);

/// Once the event under way is over, also when called on the main thread.
void AfterThisEvent(QObject& context, const std::function<void()>& action);
