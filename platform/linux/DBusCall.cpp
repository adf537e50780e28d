#include "platform/linux/DBusCall.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <limits>

namespace {

/// No timeout: after one, Qt would discard a late answer, and what it grants could never be given back.
constexpr int kForever = std::numeric_limits<int>::max();

}  // namespace

void CallOverDBus(const QDBusMessage& call, const std::function<void(const QDBusMessage& answer)>& done) {
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, kForever), qApp);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, pending, [pending, done] {
        pending->deleteLater();
        done(pending->reply());
    });
}
