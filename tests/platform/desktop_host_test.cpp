#include <gmock/gmock.h>
#include <pwd.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <atomic>

#include "platform/linux/AlertSound.h"
#include "platform/linux/DBusInhibitor.h"
#include "platform/qt/dialogs/DesktopHost.h"
#include "tests/support/Files.h"
#include "tests/support/Input.h"
#include "tests/support/RecordingHost.h"

// Runs on a session bus of its own (dbus-run-session), where nobody but the services made here answers.

namespace fs = std::filesystem;

namespace {

class StorageTest : public testing::Test {
  protected:
    RecordingHost& host = RecordingHost::InstallNew();
    const fs::path folder = host.preferencesFolder;
    FolderItem item{folder};
};

TEST_F(StorageTest, WhatIsNoPlainFileIsNil) {
    EXPECT_FALSE(item.Child("..") || item.Child(std::string("a\0", 2)) || item.Child(std::string(256, 'x')));
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), S_IRWXU), 0);
    fs::create_symlink("loop", folder / "loop");
    for (const char* name : {"pipe", "loop"})
        EXPECT_FALSE(item.Child(name)->OpenAsTextFile() || item.Child(name)->CreateTextFile()) << name;
}

TEST_F(StorageTest, ThePreferencesFolderFollowsTheEnvironmentAndIsTheUsersAlone) {
    const fs::path ofAccount = getpwuid(getuid())->pw_dir;
    const std::tuple<fs::path, fs::path, fs::path> rows[] = {
        {"", "", ofAccount / ".config"},
        {"", "relative", ofAccount / ".config"},
        {"relative/path", folder, folder / ".config"},
        {folder / "new/config", folder, folder / "new/config"},
    };
    for (const auto& [config, home, expected] : rows) {
        setenv("XDG_CONFIG_HOME", config.c_str(), 1);
        setenv("HOME", home.c_str(), 1);
        EXPECT_EQ(DesktopHost("", "", "").PreferencesFolder(), expected);
    }
    host.preferencesFolder /= "new/config";
    EXPECT_TRUE(SpecialFolder::Preferences()->Exists());
    for (const char* made : {"new", "new/config"})
        EXPECT_EQ(fs::status(folder / made).permissions(), fs::perms::owner_all) << made;
}

// It takes connections and never says a word, until it goes.
TEST_F(StorageTest, ASoundServiceThatHangsHoldsUpNothingAndTheBellRings) {
    const std::string socketFile = folder / "silent";
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    socketFile.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address) | listen(listening, 5), 0);
    setenv("PULSE_SERVER", ("unix:" + socketFile).c_str(), 1);
    std::atomic<int> rings = 0;
    AlertSound sound("org.example.test", "Test", "", [&rings] { ++rings; });
    for (int i = 0; i < 3; ++i)
        sound.Play();
    EXPECT_EQ(rings, 2) << "the first one still waits for the service";
    close(listening);
    EXPECT_TRUE(Eventually([&rings] { return rings == 3; })) << "nobody is there to play it";
}

using Calls = std::vector<std::string>;

const char* const kNotifications = "/org/freedesktop/Notifications";

/// Services that own names of the session bus, and write down what they are told. GNOME's grants nothing.
class Services : public QDBusVirtualObject {
  public:
    explicit Services(const QStringList& names) {
        EXPECT_TRUE(bus_.registerVirtualObject("/", this, QDBusConnection::SubPath));
        for (const QString& name : names)
            EXPECT_TRUE(bus_.registerService(name));
    }
    ~Services() override { QDBusConnection::disconnectFromBus(bus_.name()); }

    void Answer() {
        for (const auto& call : std::exchange(waiting_, {})) {
            // A number that tells of the service, whichever was asked first, and of how often it was.
            QVariant grant(10 * static_cast<uint>(call.path().size()) + ++grants_[call.path()]);
            if (call.path().contains("portal")) grant.setValue(QDBusObjectPath("/request"));
            const bool isRefused = call.path().contains("gnome");
            bus_.send(isRefused ? call.createErrorReply(QDBusError::Failed, "no") : call.createReply(grant));
        }
    }
    void Tell(const char* signal, uint number, const QString& text) {
        auto message = QDBusMessage::createSignal(kNotifications, "org.freedesktop.Notifications", signal);
        bus_.send(message << number << text);
    }
    /// What has come since the last time, and nothing but that.
    void Expect(const Calls& expected) {
        // For our answers to arrive, for what they lead to, and for a busy machine.
        const auto settle = QDBusMessage::createMethodCall(bus_.baseService(), "/", "org.example.Test", "Settle");
        for (int i = 0; i < 3; ++i)
            QDBusConnection::sessionBus().call(settle, QDBus::BlockWithGui);
        EXPECT_THAT(std::exchange(calls_, {}), testing::UnorderedElementsAreArray(expected));
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        if (call.member() == "Settle") return bus.send(call.createReply());
        QString words = call.path() + ' ' + call.member();
        for (const QVariant& argument : call.arguments())
            words += ' ' + argument.toString();
        calls_.push_back(words.toStdString());
        if (call.member() == "Inhibit" || call.member() == "Notify") waiting_.push_back(call);
        return true;
    }

  private:
    QDBusConnection bus_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "services");
    Calls calls_;
    std::vector<QDBusMessage> waiting_;
    QHash<QString, uint> grants_;
};

const QString kSaver = "org.freedesktop.ScreenSaver";
const Calls kAsked{"/org/freedesktop/ScreenSaver Inhibit timer why"};

TEST(DBusInhibitorTest, CallsAndReleasesEachService) {
    Services services({kSaver, "org.freedesktop.PowerManagement", "org.gnome.SessionManager", "org.mate.SessionManager",
                       "org.freedesktop.portal.Desktop"});
    DBusInhibitor inhibitor("timer");
    inhibitor.Inhibit("why");
    inhibitor.Inhibit("why");
    services.Expect({kAsked[0], "/org/freedesktop/PowerManagement/Inhibit Inhibit timer why",
                     "/org/gnome/SessionManager Inhibit timer 0 why 8",
                     "/org/mate/SessionManager Inhibit timer 0 why 8"});
    services.Answer();
    services.Expect({});
    inhibitor.Release();
    inhibitor.Release();
    services.Expect({"/org/freedesktop/ScreenSaver UnInhibit 281",
                     "/org/freedesktop/PowerManagement/Inhibit UnInhibit 401",
                     "/org/mate/SessionManager Uninhibit 241"});
    qputenv("SNAP", "/snap/timer/1");
    {
        DBusInhibitor sandboxed("timer");
        sandboxed.Inhibit("why");
        services.Expect({"/org/freedesktop/portal/desktop Inhibit  8 "});
        services.Answer();
        services.Expect({});
    }
    services.Expect({"/request Close"});
    qunsetenv("SNAP");
}

TEST(DBusInhibitorTest, ReleasesLateGrants) {
    auto services = std::make_unique<Services>(QStringList{kSaver});
    DBusInhibitor inhibitor("timer");
    for (int run = 1; run <= 2; ++run) {
        inhibitor.Release();
        inhibitor.Inhibit("why");
        services->Expect(kAsked);
    }
    services->Answer();
    services->Expect({"/org/freedesktop/ScreenSaver UnInhibit 281"});
    services.reset();
    services = std::make_unique<Services>(QStringList{kSaver});
    services->Expect(kAsked);  // it has come in the midst of a run
    services->Answer();
    inhibitor.Release();
    services->Expect({"/org/freedesktop/ScreenSaver UnInhibit 281"});
}

TEST(NotificationTest, ShowsOneAndWithdrawsIt) {
    Services services({"org.freedesktop.Notifications"});
    setenv("PULSE_SERVER", "unix:/nowhere", 1);
    DesktopHost host("timer", "Timer", "");
    int chosen = 0;
    const auto alert = [&] {
        host.Announce("Time is Up!", [&chosen] { ++chosen; });
        host.Beep();
        host.Beep();
    };
    const std::string path = kNotifications, shown = path + " Notify Timer 0 timer Time is Up!    0";
    alert();
    services.Expect({shown});
    services.Answer();
    services.Tell("ActivationToken", 301, "token");
    services.Tell("ActionInvoked", 301, "default");
    services.Tell("ActionInvoked", 302, "default");
    services.Expect({});
    EXPECT_EQ(chosen, 1);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
    {
        QWidget window;
        window.show();
        EXPECT_TRUE(Eventually([] { return QApplication::activeWindow() != nullptr; }));
        host.Beep();
        services.Expect({path + " CloseNotification 301"});
    }
    alert();
    services.Expect({shown});
    host.Announce("Stopped", {});
    services.Answer();
    services.Expect({path + " CloseNotification 302"});
}

}  // namespace
