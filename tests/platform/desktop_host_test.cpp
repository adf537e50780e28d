#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <string>
#include <utility>

#include "platform/FolderItem.h"
#include "platform/linux/AlertSound.h"
#include "platform/qt/dialogs/DesktopHost.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingHost.h"

namespace fs = std::filesystem;

namespace {

class StorageTest : public testing::Test {
  protected:
    const fs::path folder = RecordingHost::InstallNew().preferencesFolder;
    FolderItem item{folder};
};

TEST_F(StorageTest, WhatIsNoPlainFileIsNil) {
    for (const std::string& name : {std::string(), std::string(".."), std::string("a\0", 2), std::string(256, 'x')})
        EXPECT_FALSE(item.Child(name)) << name;
    EXPECT_TRUE(item.Child(std::string(255, 'x'))->CreateTextFile());
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), S_IRWXU), 0);
    EXPECT_FALSE(item.Child("pipe")->OpenAsTextFile() || item.Child("pipe")->CreateTextFile());
}

TEST_F(StorageTest, ThePreferencesFolderFollowsTheEnvironmentAndIsTheUsersAlone) {
    SaveText(folder / "file", "in the way");
    setenv("HOME", folder.c_str(), 1);
    for (const auto& [config, expected] : {std::pair<fs::path, fs::path>{folder / "new/config", folder / "new/config"},
                                           {folder / "file/config", ""},
                                           {"relative/path", folder / ".config"}}) {
        setenv("XDG_CONFIG_HOME", config.c_str(), 1);
        EXPECT_EQ(DesktopHost("", "", "").PreferencesFolder(), expected);
    }
    for (const char* made : {"new", "new/config", ".config"})
        EXPECT_EQ(fs::status(folder / made).permissions(), fs::perms::owner_all) << made;
}

// A service that takes connections and never says a word.
TEST_F(StorageTest, ASoundServiceThatHangsHoldsUpNothingAndTheBellRings) {
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    (folder / "silent").string().copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listening, 5), 0);
    setenv("PULSE_SERVER", ("unix:" + (folder / "silent").string()).c_str(), 1);

    const auto begin = std::chrono::steady_clock::now();
    auto rings = std::make_shared<std::atomic<int>>(0);
    {
        AlertSound sound("org.example.test", "Test", "", [rings] { ++*rings; });
        sound.Play();
        sound.Play();
        EXPECT_EQ(*rings, 1) << "the first one still waits for the service";
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    close(listening);
}

}  // namespace
