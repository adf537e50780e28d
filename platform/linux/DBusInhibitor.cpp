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
#include <functional>
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

constexpr auto kBus = "org.freedesktop.DBus"_L1;
constexpr auto kBusPath = "/org/freedesktop/DBus"_L1;
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

/// The call that gives back what `owner` has granted.
QDBusMessage ReleaseCall(const Service& service, const QString& owner, const QVariant& token) {
    if (service.protocol == Service::Protocol::Portal) {
        const QString request = token.value<QDBusObjectPath>().path();
        return QDBusMessage::createMethodCall(owner, request, kPortalRequest, service.release);
    }
    auto call = QDBusMessage::createMethodCall(owner, service.path, service.interface, service.release);
    call << token;
    return call;
}

/// Calls without waiting. `done` gets the answer, however late it comes, as long as the application object lives.
void Call(const QDBusMessage& call, const std::function<void(const QDBusMessage& answer)>& done) {
    auto* const pending = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, kForever), qApp);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, pending, [pending, done] {
        pending->deleteLater();
        done(pending->reply());
    });
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
                                 if (service.name == name && !owner.isEmpty() && !hasEnded_) AskOwner(service, owner);
                         });
    }

    void Ask(const Service& service) {
        // The portal speaks for others and may have to be started. What it grants is known to nobody else.
        if (service.protocol == Service::Protocol::Portal) return AskOwner(service, service.name);
        // A saver that isn't running needs no holding off. Another is asked by its owner's own name, which no reply
        // tells with Qt 6.8, so that no release reaches a successor: to it the number would mean something else.
        owners_.addWatchedService(service.name);
        auto call = QDBusMessage::createMethodCall(kBus, kBusPath, kBus, u"GetNameOwner"_s);
        call << QString(service.name);
        Call(call, [run = shared_from_this(), &service](const QDBusMessage& answer) {
            const bool isOwned = answer.type() == QDBusMessage::ReplyMessage;
            if (isOwned && !run->hasEnded_) run->AskOwner(service, answer.arguments().constFirst().toString());
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
        Call(call, [run = shared_from_this(), &service, owner](const QDBusMessage& answer) {
            if (!IsGrant(service, answer)) return;
            run->releases_.push_back(ReleaseCall(service, owner, answer.arguments().constFirst()));
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
    for (const Service& service : ServicesToAsk())
        run_->Ask(service);
}

void DBusInhibitor::Release() {
    if (run_) run_->End();
    run_.reset();
}
