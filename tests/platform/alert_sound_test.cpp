#include "platform/linux/alert/AlertSound.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <chrono>

#include "tests/support/RecordingHost.h"

namespace {

// A service that takes connections and never says a word.
TEST(AlertSound, AServiceThatHangsHoldsUpNothingAndTheBellRings) {
    const RecordingHost host;
    const std::string path = host.preferencesFolder / "silent";
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listening, 5), 0);
    setenv("PULSE_SERVER", ("unix:" + path).c_str(), 1);

    const auto begin = std::chrono::steady_clock::now();
    auto rings = std::make_shared<std::atomic<int>>(0);
    auto sound = MakeAlertSound({"org.example.test", "Test"}, "", [rings] { ++*rings; });
    sound->Play();
    sound->Play();
    sound->Play();
    EXPECT_EQ(*rings, 2) << "the first one still waits for the service";
    sound.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    close(listening);
}

}  // namespace
