#include "platform/linux/DBusInhibitor.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
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

/// The call that gives back what was granted. It names the owner that granted it, so that it never reaches a successor,
/// to whom the token means nothing.
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
struct DBusInhibitor::Run {
    bool hasEnded = false;
    /// Of all that is granted and not given back.
    std::vector<QDBusMessage> releases;

    void GiveBack() {
        for (const QDBusMessage& release : std::exchange(releases, {}))
            QDBusConnection::sessionBus().send(release);
    }
};

DBusInhibitor::DBusInhibitor(std::string applicationId, std::string reason)
    : applicationId_(std::move(applicationId)), reason_(std::move(reason)) {}

DBusInhibitor::~DBusInhibitor() { Release(); }

void DBusInhibitor::Inhibit() {
    const auto bus = QDBusConnection::sessionBus();
    if (run_ || !bus.isConnected()) return;
    run_ = std::make_shared<Run>();
    for (const Service& service : ServicesToAsk()) {
        auto call = QDBusMessage::createMethodCall(service.name, service.path, service.interface, u"Inhibit"_s);
        // A saver that isn't running needs no holding off. The portal speaks for others and may have to be started.
        call.setAutoStartService(service.protocol == Service::Protocol::Portal);
        call.setArguments(
            Arguments(service.protocol, QString::fromStdString(applicationId_), QString::fromStdString(reason_)));
        auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call, kForever), qApp);
        QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, run = run_, &service] {
            answer->deleteLater();
            if (!IsGrant(service, answer->reply())) return;
            run->releases.push_back(ReleaseCall(service, answer->reply()));
            if (run->hasEnded) run->GiveBack();
        });
    }
}

void DBusInhibitor::Release() {
    if (!run_) return;
    run_->hasEnded = true;
    run_->GiveBack();
    run_.reset();
}
