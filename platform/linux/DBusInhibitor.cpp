#include "platform/linux/DBusInhibitor.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QVariantMap>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace {

using namespace Qt::StringLiterals;

struct Service {
    /// What it wants to be told, and what it grants.
    enum class Protocol {
        Saver,    ///< (application, reason), grants a number
        Session,  ///< (application, window, reason, flags), grants a number
        Portal,   ///< (window, flags, options), grants an object that is closed in the end
    };

    Protocol protocol;
    QLatin1StringView name, path, interface, release;
};

/// The portal is last: it alone is asked in a sandbox, and only there.
constexpr std::array kServices{
    Service{Service::Protocol::Saver, "org.freedesktop.ScreenSaver"_L1, "/org/freedesktop/ScreenSaver"_L1,
            "org.freedesktop.ScreenSaver"_L1, "UnInhibit"_L1},
    Service{Service::Protocol::Saver, "org.freedesktop.PowerManagement"_L1,
            "/org/freedesktop/PowerManagement/Inhibit"_L1, "org.freedesktop.PowerManagement.Inhibit"_L1,
            "UnInhibit"_L1},
    Service{Service::Protocol::Session, "org.gnome.SessionManager"_L1, "/org/gnome/SessionManager"_L1,
            "org.gnome.SessionManager"_L1, "Uninhibit"_L1},
    Service{Service::Protocol::Session, "org.mate.SessionManager"_L1, "/org/mate/SessionManager"_L1,
            "org.mate.SessionManager"_L1, "Uninhibit"_L1},
    Service{Service::Protocol::Portal, "org.freedesktop.portal.Desktop"_L1, "/org/freedesktop/portal/desktop"_L1,
            "org.freedesktop.portal.Inhibit"_L1, "Close"_L1},
};

constexpr auto kPortalRequest = "org.freedesktop.portal.Request"_L1;
/// Session managers and the portal name the same thing by the same bit: the session isn't to be taken for idle.
constexpr uint kIdle = 8;
constexpr uint kNoWindow = 0;
/// A call that ran into a time-out of the bus library would hide a grant that comes later.
constexpr int kForever = std::numeric_limits<int>::max();

std::span<const Service> ServicesToAsk() {
    std::error_code ignored;
    const bool isSandbox = std::getenv("SNAP") || std::filesystem::exists("/.flatpak-info", ignored);
    const std::span all(kServices);
    return isSandbox ? all.last(1) : all.first(all.size() - 1);
}

QVariantList Arguments(Service::Protocol protocol, const QString& application, const QString& reason) {
    switch (protocol) {
        case Service::Protocol::Saver:
            return {application, reason};
        case Service::Protocol::Session:
            return {application, kNoWindow, reason, kIdle};
        case Service::Protocol::Portal:
            return {QString(), kIdle, QVariantMap{{u"reason"_s, reason}}};
    }
    return {};
}

bool IsGrant(const Service& service, const QDBusMessage& reply) {
    const auto expected = service.protocol == Service::Protocol::Portal ? "o"_L1 : "u"_L1;
    return reply.type() == QDBusMessage::ReplyMessage && reply.signature() == expected;
}

/// The call that gives back what was granted, to who granted it: to a successor the number would mean something else.
QDBusMessage ReleaseCall(const Service& service, const QDBusMessage& grant) {
    const QVariant token = grant.arguments().constFirst();
    if (service.protocol == Service::Protocol::Portal) {
        const QString request = token.value<QDBusObjectPath>().path();
        return QDBusMessage::createMethodCall(grant.service(), request, kPortalRequest, service.release);
    }
    auto call = QDBusMessage::createMethodCall(grant.service(), service.path, service.interface, service.release);
    call << token;
    return call;
}

}  // namespace

/// One stretch from Inhibit to Release. Lives until every service that it asked has answered.
class DBusInhibitor::Run : public std::enable_shared_from_this<Run> {
  public:
    Run(const std::string& applicationId, const std::string& reason)
        : application_(QString::fromStdString(applicationId)), reason_(QString::fromStdString(reason)) {
        owners_.setConnection(QDBusConnection::sessionBus());
        // One that begins, or begins again, in the midst of a run knows nothing of it.
        QObject::connect(&owners_, &QDBusServiceWatcher::serviceOwnerChanged, &owners_,
                         [this](const QString& name, const QString&, const QString& owner) {
                             for (const Service& service : kServices)
                                 if (service.name == name && !owner.isEmpty() && !hasEnded_) Ask(service);
                         });
    }

    void Begin() {
        for (const Service& service : ServicesToAsk()) {
            // What the portal grants is known to nobody else, and asking it may start it.
            if (service.protocol != Service::Protocol::Portal) owners_.addWatchedService(service.name);
            Ask(service);
        }
    }

    void End() {
        hasEnded_ = true;
        for (const QDBusMessage& release : std::exchange(releases_, {}))
            QDBusConnection::sessionBus().send(release);
    }

  private:
    void Ask(const Service& service) {
        auto call = QDBusMessage::createMethodCall(service.name, service.path, service.interface, u"Inhibit"_s);
        // A saver that isn't running needs no holding off; but the portal speaks for others.
        call.setAutoStartService(service.protocol == Service::Protocol::Portal);
        call.setArguments(Arguments(service.protocol, application_, reason_));
        auto* const pending =
            new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, kForever), qApp);
        QObject::connect(pending, &QDBusPendingCallWatcher::finished, pending,
                         [run = shared_from_this(), &service, pending] {
                             pending->deleteLater();
                             const QDBusMessage answer = pending->reply();
                             if (!IsGrant(service, answer)) return;
                             run->releases_.push_back(ReleaseCall(service, answer));
                             if (run->hasEnded_) run->End();
                         });
    }

    const QString application_;
    const QString reason_;
    QDBusServiceWatcher owners_;
    bool hasEnded_ = false;
    /// The calls that give back all that is granted.
    std::vector<QDBusMessage> releases_;
};

DBusInhibitor::DBusInhibitor(std::string applicationId, std::string reason)
    : applicationId_(std::move(applicationId)), reason_(std::move(reason)) {}

DBusInhibitor::~DBusInhibitor() { Release(); }

void DBusInhibitor::Inhibit() {
    if (run_ || !QDBusConnection::sessionBus().isConnected()) return;
    run_ = std::make_shared<Run>(applicationId_, reason_);
    run_->Begin();
}

void DBusInhibitor::Release() {
    if (run_) run_->End();
    run_.reset();
}
