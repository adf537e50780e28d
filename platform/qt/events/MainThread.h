#pragma once

#include <QtCore/QObject>
#include <functional>
#include <string_view>

/// Carries an action out on the main thread: at once when called there, otherwise soon, in the order of the calls;
/// not at all when `context` has been destroyed by then. This is how other threads reach the main one. What only
/// has to wait for the end of the event under way goes through QMetaObject::invokeMethod, queued.
/// `property`, a literal, says that the action only sets that property of `context`. If the queue ends in property
/// changes of `context` and one sets the same property, the new one replaces it, so that a fast worker doesn't
/// flood the event loop.
void OnMainThread(QObject& context, std::function<void()> action, std::string_view property = {});
