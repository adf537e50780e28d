#include "platform/linux/Notification.h"

#include "platform/linux/DBusCall.h"

namespace {

using namespace Qt::StringLiterals;

/// The name of both the service and its interface.
constexpr auto kService = "org.freedesktop.Notifications"_L1;
constexpr auto kPath = "/org/freedesktop/Notifications"_L1;

QDBusMessage CallTo(const QString& method) { return QDBusMessage::createMethodCall(kService, kPath, kService, method); }

QDBusMessage NotifyCall(const QString& applicationId, const QString& name, const QString& text) {
    constexpr uint kReplacesNone = 0;
    constexpr uchar kCritical = 2;  // stays visible, even over another program in fullscreen
    constexpr int kNeverExpires = 0;
    const QStringList actions{u"default"_s, u"Show"_s};
    const QVariantMap hints{{u"desktop-entry"_s, applicationId},
                            {u"suppress-sound"_s, true},
                            {u"urgency"_s, QVariant::fromValue(kCritical)}};
    auto call = CallTo(u"Notify"_s);
    call << name << kReplacesNone << applicationId << text << QString() << actions << hints << kNeverExpires;
    return call;
}

}  // namespace

/// One notification, from Show to Withdraw. It exists at least until the service has replied.
class ShownNotification final : public QObject, public std::enable_shared_from_this<ShownNotification> {
    Q_OBJECT

  public:
    explicit ShownNotification(std::function<void()> chosen) : chosen_(std::move(chosen)) {
        auto bus = QDBusConnection::sessionBus();
        // The sender is left empty, because Qt would block to look up the owner of a named service.
        bus.connect({}, kPath, kService, u"ActivationToken"_s, this, SLOT(KeepToken(uint, QString)));
        bus.connect({}, kPath, kService, u"ActionInvoked"_s, this, SLOT(Choose(uint)));
    }

    void Begin(const QDBusMessage& notify) {
        CallOverDBus(notify, [self = shared_from_this()](const QDBusMessage& answer) {
            if (answer.signature() != "u"_L1) return;
            self->id_ = answer.arguments().constFirst().toUInt();
            if (self->hasEnded_) self->End();
        });
    }

    void End() {
        hasEnded_ = true;
        if (id_ == kNone) return;
        auto call = CallTo(u"CloseNotification"_s);
        call << id_;
        call.setAutoStartService(false);
        QDBusConnection::sessionBus().send(call);
    }

  private:
    /// Stores the activation token that some services send. Qt uses it at the next activation on Wayland.
    Q_SLOT void KeepToken(uint id, const QString& token) {
        if (id == id_ && !hasEnded_) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    }
    /// Queues the call of `chosen_`, because a window that comes to the front may destroy this object.
    Q_SLOT void Choose(uint id) {
        if (id == id_ && !hasEnded_) QMetaObject::invokeMethod(qApp, chosen_, Qt::QueuedConnection);
    }

    static constexpr uint kNone = 0;
    const std::function<void()> chosen_;
    uint id_ = kNone;
    bool hasEnded_ = false;
};

Notification::Notification(std::string applicationId, std::string name)
    : applicationId_(std::move(applicationId)), name_(std::move(name)) {}

Notification::~Notification() { Withdraw(); }

void Notification::Show(const std::string& text, const std::function<void()>& chosen) {
    if (shown_ || !QDBusConnection::sessionBus().isConnected()) return;
    shown_ = std::make_shared<ShownNotification>(chosen);
    const auto qString = [](const std::string& utf8) { return QString::fromStdString(utf8); };
    shown_->Begin(NotifyCall(qString(applicationId_), qString(name_), qString(text)));
}

void Notification::Withdraw() {
    if (shown_) shown_->End();
    shown_.reset();
}

#include "Notification.moc"
