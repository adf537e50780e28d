#pragma once

#include <QDBusMessage>
#include <functional>

/// Calls a method over the session bus and doesn't wait. `done` gets the answer, which may be an error, however late it
/// comes, as long as the application object lives.
void CallOverDBus(const QDBusMessage& call, const std::function<void(const QDBusMessage& answer)>& done);
