#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVirtualObject>
#include <memory>
#include <utility>
#include <vector>

#include "platform/linux/DBusInhibitor.h"
#include "tests/support/Input.h"

// Runs on a session bus of its own (dbus-run-session), where nobody but the services made here answers.

namespace {

using namespace Qt::StringLiterals;

const QString kSettle = u"Settle"_s;

/// Services that own names of the session bus, and write down what they are told. GNOME's grants nothing.
class Services : public QDBusVirtualObject {
  public:
    explicit Services(const QStringList& names) {
        EXPECT_TRUE(bus_.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath));
        for (const QString& name : names)
            EXPECT_TRUE(bus_.registerService(name));
    }
    ~Services() override { QDBusConnection::disconnectFromBus(bus_.name()); }

    void Answer() {
        for (const auto& call : std::exchange(waiting_, {})) {
            QVariant grant(++grants_);
            if (call.path().contains("portal"_L1)) grant.setValue(QDBusObjectPath(u"/request"_s));
            const bool isRefused = call.path().contains("gnome"_L1);
            bus_.send(isRefused ? call.createErrorReply(QDBusError::Failed, u"no"_s) : call.createReply(grant));
        }
    }
    /// What has come since the last time, and nothing but that.
    void Expect(const QStringList& expected) {
        // Once for our answers to arrive, and once more for what they lead to.
        for (bool isAnswered : {false, false}) {
            const auto call =
                QDBusMessage::createMethodCall(bus_.baseService(), u"/"_s, u"org.example.Test"_s, kSettle);
            const QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(call));
            QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&] { isAnswered = true; });
            EXPECT_TRUE(Eventually([&] { return isAnswered; }));
        }
        EXPECT_EQ(std::exchange(calls_, {}).join('\n').toStdString(), expected.join('\n').toStdString());
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        if (call.member() == kSettle) return bus.send(call.createReply());
        QStringList words{call.path(), call.interface(), call.member()};
        for (const QVariant& argument : call.arguments())
            words.push_back(argument.toString());
        calls_.push_back(words.join(' '));
        if (call.member() == "Inhibit"_L1) waiting_.push_back(call);
        return true;
    }

  private:
    QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QStringList calls_;
    std::vector<QDBusMessage> waiting_;
    uint grants_ = 0;
};

const QStringList kNames{u"org.freedesktop.ScreenSaver"_s, u"org.freedesktop.PowerManagement"_s,
                         u"org.gnome.SessionManager"_s, u"org.mate.SessionManager"_s,
                         u"org.freedesktop.portal.Desktop"_s};
const QString kSaver = u"/org/freedesktop/ScreenSaver org.freedesktop.ScreenSaver "_s;
const QString kPower = u"/org/freedesktop/PowerManagement/Inhibit org.freedesktop.PowerManagement.Inhibit "_s;
const QString kGnome = u"/org/gnome/SessionManager org.gnome.SessionManager "_s;
const QString kMate = u"/org/mate/SessionManager org.mate.SessionManager "_s;
const QString kPortal = u"/org/freedesktop/portal/desktop org.freedesktop.portal.Inhibit "_s;

TEST(DBusInhibitorTest, EveryServiceIsAskedOnceAndGetsItsOwnGrantBackOnce) {
    Services services(kNames);
    DBusInhibitor inhibitor("timer", "why");
    inhibitor.Inhibit();
    inhibitor.Inhibit();
    services.Expect({kSaver + "Inhibit timer why", kPower + "Inhibit timer why", kGnome + "Inhibit timer 0 why 8",
                     kMate + "Inhibit timer 0 why 8"});
    services.Answer();
    services.Expect({});
    inhibitor.Release();
    inhibitor.Release();
    services.Expect({kSaver + "UnInhibit 1", kPower + "UnInhibit 2", kMate + "Uninhibit 4"});
}

TEST(DBusInhibitorTest, ASandboxAsksThePortalOnlyAndDestructionReleasesWhatIsHeld) {
    qputenv("SNAP", "/snap/timer/1");
    Services services(kNames);
    {
        DBusInhibitor inhibitor("timer", "why");
        inhibitor.Inhibit();
        services.Expect({kPortal + "Inhibit  8 "});
        services.Answer();
        services.Expect({});
    }
    services.Expect({u"/request org.freedesktop.portal.Request Close"_s});
    qunsetenv("SNAP");
}

TEST(DBusInhibitorTest, AGrantIsGivenBackHoweverLateAndToNobodyElse) {
    auto services = std::make_unique<Services>(kNames.first(1));
    auto inhibitor = std::make_unique<DBusInhibitor>("timer", "why");
    for (int run = 1; run <= 3; ++run) {
        inhibitor->Release();
        inhibitor->Inhibit();
        services->Expect({kSaver + "Inhibit timer why"});
    }
    services->Answer();
    services->Expect({kSaver + "UnInhibit 1", kSaver + "UnInhibit 2"});
    services.reset();
    services = std::make_unique<Services>(kNames.first(1));
    services->Expect({kSaver + "Inhibit timer why"});  // it has come in the midst of a run
    services->Answer();
    services->Expect({});
    inhibitor->Release();
    services->Expect({kSaver + "UnInhibit 1"});

    inhibitor->Inhibit();
    services->Expect({kSaver + "Inhibit timer why"});
    inhibitor.reset();
    services->Answer();
    services->Expect({kSaver + "UnInhibit 2"});
}

}  // namespace
