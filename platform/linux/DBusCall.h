#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <functional>
#include <limits>

/// Calls a method over the session bus and doesn't wait. `done` gets the answer, which may be an error,
/// however late it comes, as long as the application object lives.
inline void CallOverDBus(const QDBusMessage& call, const std::function<void(const QDBusMessage& answer)>& done) {
    // After a timeout Qt would discard a late answer, and what it grants could never be given back.
    constexpr int kForever = std::numeric_limits<int>::max();
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, kForever), qApp);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, pending, [pending, done] {
        pending->deleteLater();
        done(pending->reply());
    });
}
