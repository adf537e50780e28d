#pragma once

#include <QtCore/QObject>
#include <functional>
#include <string_view>

/// Carries an action out on the main thread: at once when that is this one, otherwise soon, in the order of the calls.
/// It is left out when `context` has been destroyed by then.
/// `property`, a literal, says that the action only sets that property of `context`. Where the same one waits among the
/// latest actions, all such and of that object, it is replaced: a fast worker doesn't flood the event loop.
void OnMainThread(QObject& context, std::function<void()> action, std::string_view property = {});
