#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <functional>
#include <limits>

/// Calls a method asynchronously over the session bus. `done` receives the reply or error, however late it
/// comes, unless the application object is destroyed first.
inline void CallOverDBus(const QDBusMessage& call, const std::function<void(const QDBusMessage& answer)>& done) {
    // After a timeout, Qt would discard a late reply, so whatever it grants could never be released.
    constexpr int kForever = std::numeric_limits<int>::max();
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, kForever), qApp);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, pending, [pending, done] {
        pending->deleteLater();
        done(pending->reply());
    });
}
