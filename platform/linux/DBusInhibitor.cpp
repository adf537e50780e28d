#include "platform/linux/DBusInhibitor.h"

#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <cstdlib>
#include <filesystem>
#include <span>

#include "platform/linux/DBusCall.h"

namespace {

using namespace Qt::StringLiterals;

/// The arguments of Inhibit that a service expects, and its reply.
enum class Protocol {
    Saver,    ///< (application, reason) returns a cookie
    Session,  ///< (application, window, reason, flags) returns a cookie
    Portal,   ///< (window, flags, options) returns the path of a request object, to be closed
};
using enum Protocol;

struct Service {
    Protocol protocol;
    QLatin1StringView name, path, interface, release;
};

/// The last entry, the portal, is the only one called in a sandbox and isn't called elsewhere: it grants
/// every request, and its back ends merely forward the call to the services above.
constexpr Service kServices[] = {
    {Saver, "org.freedesktop.ScreenSaver"_L1, "/org/freedesktop/ScreenSaver"_L1, "org.freedesktop.ScreenSaver"_L1,
     "UnInhibit"_L1},
    {Saver, "org.freedesktop.PowerManagement"_L1, "/org/freedesktop/PowerManagement/Inhibit"_L1,
     "org.freedesktop.PowerManagement.Inhibit"_L1, "UnInhibit"_L1},
    {Session, "org.gnome.SessionManager"_L1, "/org/gnome/SessionManager"_L1, "org.gnome.SessionManager"_L1,
     "Uninhibit"_L1},
    {Session, "org.mate.SessionManager"_L1, "/org/mate/SessionManager"_L1, "org.mate.SessionManager"_L1,
     "Uninhibit"_L1},
    {Portal, "org.freedesktop.portal.Desktop"_L1, "/org/freedesktop/portal/desktop"_L1,
     "org.freedesktop.portal.Inhibit"_L1, "Close"_L1},
};

constexpr auto kBus = "org.freedesktop.DBus"_L1;
constexpr auto kBusPath = "/org/freedesktop/DBus"_L1;
constexpr uint kIdle = 8;  // flag of session managers and the portal: the session must not become idle
constexpr uint kNoWindow = 0;

std::span<const Service> ServicesToAsk() {
    std::error_code ignored;
    const bool isSandbox = std::getenv("SNAP") || std::filesystem::exists("/.flatpak-info", ignored);
    const std::span all(kServices);
    return isSandbox ? all.last(1) : all.first(all.size() - 1);
}

QVariantList Arguments(Protocol protocol, const QString& application, const QString& reason) {
    if (protocol == Saver) return {application, reason};
    if (protocol == Session) return {application, kNoWindow, reason, kIdle};
    return {QString(), kIdle, QVariantMap{{u"reason"_s, reason}}};
}

bool IsGrant(const Service& service, const QDBusMessage& reply) {
    const auto expected = service.protocol == Portal ? "o"_L1 : "u"_L1;
    return reply.type() == QDBusMessage::ReplyMessage && reply.signature() == expected;
}

/// Returns the call that releases a cookie, or the portal's request object, at `owner`, which granted it.
QDBusMessage ReleaseCall(const Service& service, const QString& owner, const QVariant& cookie) {
    if (service.protocol == Portal) {
        const QString request = cookie.value<QDBusObjectPath>().path();
        return QDBusMessage::createMethodCall(owner, request, "org.freedesktop.portal.Request"_L1, service.release);
    }
    auto call = QDBusMessage::createMethodCall(owner, service.path, service.interface, service.release);
    call << cookie;
    return call;
}

}  // namespace

/// One inhibition, from Inhibit to Release. It exists until every called service has replied.
class DBusInhibitor::Inhibition : public std::enable_shared_from_this<Inhibition> {
  public:
    Inhibition(const std::string& applicationId, const std::string& reason)
        : application_(QString::fromStdString(applicationId)), reason_(QString::fromStdString(reason)) {
        watcher_.setConnection(QDBusConnection::sessionBus());
        // A service that starts or restarts during the inhibition doesn't know of it.
        const auto askNew = [this](const QString& name, const QString&, const QString& owner) {
            if (owner.isEmpty() || hasEnded_) return;
            for (const Service& service : kServices)
                if (service.name == name) AskOwner(service, owner);
        };
        QObject::connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_, askNew);
    }

    void Ask(const Service& service) {
        // Calling the portal by its well-known name starts it. No other service knows its request object.
        if (service.protocol == Portal) return AskOwner(service, service.name);
        // A running service is called by its unique bus name, so that a release never reaches a restarted
        // service, whose cookies differ. The name is requested first, because Qt 6.8 omits it from replies.
        watcher_.addWatchedService(service.name);
        auto call = QDBusMessage::createMethodCall(kBus, kBusPath, kBus, u"GetNameOwner"_s);
        call << QString(service.name);
        CallOverDBus(call, [self = shared_from_this(), &service](const QDBusMessage& answer) {
            if (answer.type() != QDBusMessage::ReplyMessage || self->hasEnded_) return;
            self->AskOwner(service, answer.arguments().constFirst().toString());
        });
    }

    void End() {
        hasEnded_ = true;
        for (const QDBusMessage& release : std::exchange(releases_, {}))
            QDBusConnection::sessionBus().send(release);
    }

  private:
    void AskOwner(const Service& service, const QString& owner) {
        auto call = QDBusMessage::createMethodCall(owner, service.path, service.interface, u"Inhibit"_s);
        call.setArguments(Arguments(service.protocol, application_, reason_));
        CallOverDBus(call, [self = shared_from_this(), &service, owner](const QDBusMessage& answer) {
            if (!IsGrant(service, answer)) return;
            self->releases_.push_back(ReleaseCall(service, owner, answer.arguments().constFirst()));
            if (self->hasEnded_) self->End();
        });
    }

    const QString application_;
    const QString reason_;
    QDBusServiceWatcher watcher_;
    bool hasEnded_ = false;
    std::vector<QDBusMessage> releases_;  ///< the calls that release what was granted
};

DBusInhibitor::DBusInhibitor(std::string applicationId) : applicationId_(std::move(applicationId)) {}

DBusInhibitor::~DBusInhibitor() { Release(); }

void DBusInhibitor::Inhibit(const std::string& reason) {
    if (inhibition_ || !QDBusConnection::sessionBus().isConnected()) return;
    inhibition_ = std::make_shared<Inhibition>(applicationId_, reason);
    for (const Service& service : ServicesToAsk())
        inhibition_->Ask(service);
}

void DBusInhibitor::Release() {
    if (inhibition_) inhibition_->End();
    inhibition_.reset();
}
