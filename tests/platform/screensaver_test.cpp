#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "platform/linux/screensaver/DBusInhibitor.h"
#include "tests/support/Input.h"

// Runs on a session bus of its own (dbus-run-session), where nobody but the services made here answers.

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

struct ServiceRow {
    QLatin1StringView name, path, interface, signature, release;
    /// The first of what it is to be told: who asks, why, and that only idleness is to be held off.
    QVariantList arguments;
};
const QVariantList kToSaver{u"timer"_s, u"counting down"_s};
const QVariantList kToSession{u"timer"_s, 0u, u"counting down"_s, 8u};
const QVariantList kToPortal{QString(), 8u};
const std::vector<ServiceRow> kRows = {
    {"org.freedesktop.ScreenSaver"_L1, "/org/freedesktop/ScreenSaver"_L1, "org.freedesktop.ScreenSaver"_L1, "ss"_L1,
     "UnInhibit"_L1, kToSaver},
    {"org.gnome.SessionManager"_L1, "/org/gnome/SessionManager"_L1, "org.gnome.SessionManager"_L1, "susu"_L1,
     "Uninhibit"_L1, kToSession},
    {"org.mate.SessionManager"_L1, "/org/mate/SessionManager"_L1, "org.mate.SessionManager"_L1, "susu"_L1,
     "Uninhibit"_L1, kToSession},
    {"org.freedesktop.PowerManagement"_L1, "/org/freedesktop/PowerManagement/Inhibit"_L1,
     "org.freedesktop.PowerManagement.Inhibit"_L1, "ss"_L1, "UnInhibit"_L1, kToSaver},
    {"org.freedesktop.portal.Desktop"_L1, "/org/freedesktop/portal/desktop"_L1, "org.freedesktop.portal.Inhibit"_L1,
     "sua{sv}"_L1, "Close"_L1, kToPortal},
};
const ServiceRow &kSaver = kRows[0], &kGnome = kRows[1], &kMate = kRows[2], &kPortal = kRows[4];

/// A service on a bus connection of its own. It counts, and knows which of its holds stand.
class Service : public QDBusVirtualObject {
  public:
    enum Manner { Grants, Refuses, Waits };

    explicit Service(const ServiceRow& serviceRow, Manner how = Grants) : manner(how), row_(serviceRow) {
        static int made = 0;
        connection_ = u"service%1"_s.arg(++made);
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection_);
        EXPECT_TRUE(bus.registerVirtualObject(row_.path, this, QDBusConnection::SubPath));
        EXPECT_TRUE(bus.registerService(row_.name));
    }
    ~Service() override { QDBusConnection::disconnectFromBus(connection_); }

    /// Answers the calls that wait.
    void Answer(Manner how) {
        for (const auto& call : std::exchange(waiting_, {}))
            Answer(call, how);
    }
    /// Comes back when all that the inhibitor has sent to this service so far has arrived.
    void Settle() const {
        const auto ping = QDBusMessage::createMethodCall(row_.name, row_.path, row_.interface, u"Settle"_s);
        const auto call = QDBusConnection::sessionBus().asyncCall(ping);
        EXPECT_TRUE(Eventually([&] { return call.isFinished(); }));
    }

    Manner manner;
    int asked = 0, released = 0, strays = 0;
    std::vector<QVariant> held;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override {
        if (call.member() == row_.release) {
            const auto closed = QVariant::fromValue(QDBusObjectPath(call.path()));
            Release(call.signature().isEmpty() ? closed : call.arguments().constFirst());
        } else if (call.interface() == row_.interface && call.path() == row_.path && call.member() == "Inhibit"_L1) {
            ++asked;
            EXPECT_EQ(call.signature(), row_.signature);
            EXPECT_EQ(call.arguments().first(row_.arguments.size()), row_.arguments);
            Answer(call, manner);
        } else {
            Bus().send(call.createReply());
        }
        return true;
    }

  private:
    QDBusConnection Bus() const { return QDBusConnection(connection_); }

    void Answer(const QDBusMessage& call, Manner how) {
        if (how == Waits) waiting_.push_back(call);
        if (how == Refuses) Bus().send(call.createErrorReply(QDBusError::Failed, u"not today"_s));
        if (how != Grants) return;
        static uint cookie = 40;
        const auto request = QDBusObjectPath(u"%1/request/%2"_s.arg(row_.path).arg(++cookie));
        held.push_back(&row_ == &kPortal ? QVariant::fromValue(request) : QVariant(cookie));
        Bus().send(call.createReply(held.back()));
    }
    void Release(const QVariant& token) {
        ++released;
        if (std::erase(held, token) == 0) ++strays;
    }

    const ServiceRow& row_;
    QString connection_;
    std::vector<QDBusMessage> waiting_;
};

class ScreenSaverTest : public testing::Test {
  protected:
    ~ScreenSaverTest() override { qunsetenv("SNAP"); }

    static void ExpectHolds(Service& service, std::size_t count) {
        EXPECT_TRUE(Eventually([&] { return service.held.size() == count; })) << service.held.size();
        service.Settle();
        EXPECT_EQ(service.held.size(), count);
        EXPECT_EQ(service.strays, 0);
    }
    static void ExpectAsked(const Service& service, int times) {
        EXPECT_TRUE(Eventually([&] { return service.asked == times; })) << service.asked;
    }

    static constexpr auto kNeverInATest = 1h;
    DBusInhibitor inhibitor{"timer", "counting down", kNeverInATest};
    DBusInhibitor impatient{"timer", "counting down", 30ms};
};

}  // namespace

TEST_F(ScreenSaverTest, TheFirstThatGrantsIsUsedOnceAndGetsItBackOnce) {
    for (std::size_t last = 0; last < kRows.size(); ++last) {
        std::vector<std::unique_ptr<Service>> services;
        for (std::size_t i = 0; i < kRows.size(); ++i)
            services.push_back(std::make_unique<Service>(kRows[i], i < last ? Service::Refuses : Service::Grants));
        inhibitor.Inhibit();
        inhibitor.Inhibit();
        ExpectHolds(*services[last], 1);
        inhibitor.Inhibit();
        inhibitor.Release();
        inhibitor.Release();
        ExpectHolds(*services[last], 0);
        for (std::size_t i = 0; i < kRows.size(); ++i) {
            EXPECT_EQ(services[i]->asked, i <= last ? 1 : 0) << kRows[i].name.data();
            EXPECT_EQ(services[i]->released, i == last ? 1 : 0) << kRows[i].name.data();
        }
    }
}

TEST_F(ScreenSaverTest, AServiceThatDoesNotAnswerIsPassedOverAndItsLateGrantGivenBack) {
    Service saver(kSaver, Service::Waits), gnome(kGnome);
    impatient.Inhibit();
    ExpectHolds(gnome, 1);
    saver.Answer(Service::Grants);
    ExpectHolds(saver, 0);
    EXPECT_EQ(saver.released, 1);
    impatient.Release();
    ExpectHolds(gnome, 0);
    EXPECT_EQ(saver.released, 1);
}

TEST_F(ScreenSaverTest, ALateGrantIsKeptWhileNobodyElseHasGranted) {
    Service saver(kSaver, Service::Waits), gnome(kGnome, Service::Waits);
    impatient.Inhibit();
    ExpectAsked(gnome, 1);
    saver.Answer(Service::Grants);
    ExpectHolds(saver, 1);
    gnome.Answer(Service::Grants);
    ExpectHolds(gnome, 0);
    impatient.Release();
    ExpectHolds(saver, 0);
    EXPECT_EQ(saver.released, 1);
    EXPECT_EQ(gnome.released, 1);
}

TEST_F(ScreenSaverTest, StoppingAndStartingFasterThanTheAnswersLeavesOneHold) {
    Service saver(kSaver, Service::Waits);
    for (int run = 1; run <= 3; ++run) {
        inhibitor.Release();
        inhibitor.Inhibit();
        ExpectAsked(saver, run);
    }
    saver.Answer(Service::Grants);
    ExpectHolds(saver, 1);
    EXPECT_EQ(saver.released, 2);
    inhibitor.Release();
    ExpectHolds(saver, 0);
    EXPECT_EQ(saver.released, 3);
}

TEST_F(ScreenSaverTest, WhenTheServiceLeavesTheNextIsAskedAndNobodyTwice) {
    auto saver = std::make_unique<Service>(kSaver);
    auto gnome = std::make_unique<Service>(kGnome);
    inhibitor.Inhibit();
    ExpectHolds(*saver, 1);
    saver.reset();
    ExpectHolds(*gnome, 1);

    Service successor(kSaver), mate(kMate);
    gnome.reset();
    ExpectHolds(mate, 1);
    EXPECT_EQ(successor.asked, 0);
}

TEST_F(ScreenSaverTest, ASuccessorIsNotSentWhatItsPredecessorGranted) {
    auto saver = std::make_unique<Service>(kSaver);
    inhibitor.Inhibit();
    ExpectHolds(*saver, 1);
    saver.reset();
    Service successor(kSaver);
    inhibitor.Release();  // No event has told it of the change yet.
    successor.Settle();
    EXPECT_EQ(successor.released, 0);
}

TEST_F(ScreenSaverTest, ASandboxAsksThePortalOnlyAndDestructionReleasesWhatIsHeld) {
    qputenv("SNAP", "/snap/timer/1");
    Service saver(kSaver), portal(kPortal);
    auto shortLived = std::make_unique<DBusInhibitor>("timer", "counting down", kNeverInATest);
    shortLived->Inhibit();
    ExpectHolds(portal, 1);
    shortLived.reset();
    ExpectHolds(portal, 0);
    EXPECT_EQ(portal.released, 1);
    EXPECT_EQ(saver.asked, 0);
}

TEST_F(ScreenSaverTest, AnAnswerAfterReleaseOrDestructionIsDealtWithAndNobodyElseAsked) {
    for (const auto answer : {Service::Grants, Service::Refuses}) {
        for (const bool isDestroyed : {false, true}) {
            Service saver(kSaver, Service::Waits), gnome(kGnome);
            auto shortLived = std::make_unique<DBusInhibitor>("timer", "counting down", kNeverInATest);
            shortLived->Inhibit();
            ExpectAsked(saver, 1);
            shortLived->Release();
            if (isDestroyed) shortLived.reset();
            saver.Answer(answer);
            ExpectHolds(saver, 0);
            ExpectHolds(gnome, 0);
            EXPECT_EQ(saver.released, answer == Service::Grants ? 1 : 0);
            EXPECT_EQ(gnome.asked, 0);
        }
    }
}
