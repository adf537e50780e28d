#include "platform/linux/screensaver/DBusInhibitor.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QTimer>
#include <QVariantMap>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <optional>
#include <utility>

namespace {

using namespace Qt::StringLiterals;

/// What a service wants to be told, and what it grants.
enum class Shape {
    Saver,    ///< (application, reason), grants a number
    Session,  ///< (application, window, reason, flags), grants a number
    Portal,   ///< (window, flags, options), grants an object that is closed in the end
};

struct Service {
    QLatin1StringView name, path, interface, inhibit;
    Shape shape;
    QLatin1StringView release;
};

/// In the order in which they are asked. The portal is last: a sandbox begins there.
constexpr std::array kServices{
    Service{"org.freedesktop.ScreenSaver"_L1, "/org/freedesktop/ScreenSaver"_L1, "org.freedesktop.ScreenSaver"_L1,
            "Inhibit"_L1, Shape::Saver, "UnInhibit"_L1},
    Service{"org.gnome.SessionManager"_L1, "/org/gnome/SessionManager"_L1, "org.gnome.SessionManager"_L1, "Inhibit"_L1,
            Shape::Session, "Uninhibit"_L1},
    Service{"org.mate.SessionManager"_L1, "/org/mate/SessionManager"_L1, "org.mate.SessionManager"_L1, "Inhibit"_L1,
            Shape::Session, "Uninhibit"_L1},
    Service{"org.freedesktop.PowerManagement"_L1, "/org/freedesktop/PowerManagement/Inhibit"_L1,
            "org.freedesktop.PowerManagement.Inhibit"_L1, "Inhibit"_L1, Shape::Saver, "UnInhibit"_L1},
    Service{"org.freedesktop.portal.Desktop"_L1, "/org/freedesktop/portal/desktop"_L1,
            "org.freedesktop.portal.Inhibit"_L1, "Inhibit"_L1, Shape::Portal, "Close"_L1},
};

constexpr auto kPortalRequest = "org.freedesktop.portal.Request"_L1;
/// Session managers and the portal name the same thing by the same bit: the session isn't to be taken for idle.
constexpr uint kIdle = 8;
constexpr uint kNoWindow = 0;
/// A call that ran into a time-out of the bus library would hide a grant that comes later.
constexpr int kForever = std::numeric_limits<int>::max();

std::size_t FirstService() {
    std::error_code ignored;
    const bool sandbox = std::getenv("SNAP") || std::filesystem::exists("/.flatpak-info", ignored);
    return sandbox ? kServices.size() - 1 : 0;
}

QVariantList Arguments(Shape shape, const QString& application, const QString& reason) {
    switch (shape) {
        case Shape::Saver:
            return {application, reason};
        case Shape::Session:
            return {application, kNoWindow, reason, kIdle};
        case Shape::Portal:
            return {QString(), kIdle, QVariantMap{{u"reason"_s, reason}}};
    }
    return {};
}

/// What was granted, and by whom.
struct Hold {
    const Service* service;
    /// Its unique name: what is sent there never reaches a successor, to whom the token means nothing.
    QString owner;
    QVariant token;
};

std::optional<Hold> Granted(const Service& service, const QDBusMessage& reply) {
    const auto expected = service.shape == Shape::Portal ? "o"_L1 : "u"_L1;
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != expected) return std::nullopt;
    return Hold{&service, reply.service(), reply.arguments().constFirst()};
}

QDBusMessage ReleaseCall(const Hold& hold) {
    const Service& service = *hold.service;
    if (service.shape == Shape::Portal) {
        const auto request = hold.token.value<QDBusObjectPath>().path();
        return QDBusMessage::createMethodCall(hold.owner, request, kPortalRequest, service.release);
    }
    auto call = QDBusMessage::createMethodCall(hold.owner, service.path, service.interface, service.release);
    call << hold.token;
    return call;
}

}  // namespace

/// One stretch from Inhibit to Release. Lives until every service that it asked has answered. The first grant while the
/// run lasts is kept, whoever it comes from; every other is given back at once.
class DBusInhibitor::Run : public std::enable_shared_from_this<Run> {
  public:
    Run(const std::string& applicationId, const std::string& reason, std::chrono::milliseconds patience)
        : application_(QString::fromStdString(applicationId)), reason_(QString::fromStdString(reason)) {
        patience_.setSingleShot(true);
        patience_.setInterval(patience);
        QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { AskNext(); });
        QObject::connect(&owners_, &QDBusServiceWatcher::serviceOwnerChanged, &owners_,
                         [this](const QString& name, const QString& former) { OwnerLeft(name, former); });
    }

    /// Once. Without a bus, nothing happens.
    void Begin(const QDBusConnection& bus) {
        if (!bus.isConnected()) return;
        bus_ = bus;
        owners_.setConnection(bus);
        AskNext();
    }

    void End() {
        ended_ = true;
        patience_.stop();
        if (hold_) bus_->send(ReleaseCall(*hold_));
        hold_.reset();
    }

  private:
    void AskNext() {
        if (next_ == kServices.size()) return;
        const Service& service = kServices[next_++];
        // From before the question on, so that an owner that leaves right after its answer is not missed.
        owners_.addWatchedService(service.name);
        auto* answer = new QDBusPendingCallWatcher(bus_->asyncCall(InhibitCall(service), kForever), qApp);
        QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer,
                         [run = shared_from_this(), &service](QDBusPendingCallWatcher* finished) {
                             run->Answered(service, finished->reply());
                             finished->deleteLater();
                         });
        patience_.start();
    }

    QDBusMessage InhibitCall(const Service& service) const {
        auto call = QDBusMessage::createMethodCall(service.name, service.path, service.interface, service.inhibit);
        // A saver that isn't running needs no holding off. The portal speaks for others and may have to be started.
        call.setAutoStartService(service.shape == Shape::Portal);
        call.setArguments(Arguments(service.shape, application_, reason_));
        return call;
    }

    void Answered(const Service& service, const QDBusMessage& reply) {
        const auto granted = Granted(service, reply);
        if (granted && (ended_ || hold_)) {
            bus_->send(ReleaseCall(*granted));
        } else if (granted) {
            hold_ = granted;
            patience_.stop();
        } else if (!ended_ && !hold_ && &service == &kServices[next_ - 1]) {
            AskNext();
        }
    }

    /// What the former owner had granted is void; there is nobody to give it back to.
    void OwnerLeft(const QString& name, const QString& former) {
        if (!hold_ || hold_->service->name != name || hold_->owner != former) return;
        hold_.reset();
        AskNext();
    }

    const QString application_;
    const QString reason_;
    std::optional<QDBusConnection> bus_;
    QDBusServiceWatcher owners_;
    QTimer patience_;
    std::size_t next_ = FirstService();  ///< only rises, so that the walk comes to an end
    bool ended_ = false;
    std::optional<Hold> hold_;
};

DBusInhibitor::DBusInhibitor(std::string applicationId, std::string reason, std::chrono::milliseconds patience)
    : applicationId_(std::move(applicationId)), reason_(std::move(reason)), patience_(patience) {}

DBusInhibitor::~DBusInhibitor() { Release(); }

void DBusInhibitor::Inhibit() {
    if (run_) return;
    run_ = std::make_shared<Run>(applicationId_, reason_, patience_);
    run_->Begin(QDBusConnection::sessionBus());
}

void DBusInhibitor::Release() {
    if (!run_) return;
    run_->End();
    run_.reset();
}
