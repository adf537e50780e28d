#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <string>
#include <utility>

#include "platform/FolderItem.h"
#include "platform/Variant.h"
#include "platform/linux/PreferencesFolder.h"
#include "tests/support/Files.h"
#include "tests/support/RecordingHost.h"

namespace fs = std::filesystem;

namespace {

TEST(VariantTest, ConvertsBetweenTextAndColor) {
    EXPECT_EQ(Variant(Color{0x0A0B0C}).StringValue(), "#0A0B0C");
    EXPECT_EQ(Variant("#fFa001").ColorValue(), Color{0xFFA001});
    EXPECT_EQ(Variant("00FF10").ColorValue(), Color{0x00FF10});
    for (const char* text : {"", "#", "#FFFFFFF", "##FFFFF", "-12345", " FFFFF", "0xFFFF", "#GGGGGG"})
        EXPECT_EQ(Variant(text).ColorValue(), Color{}) << text;
}

class StorageTest : public testing::Test {
  protected:
    RecordingHost& host = RecordingHost::InstallNew();
    const fs::path folder = host.preferencesFolder;
    FolderItem item{folder};
};

TEST_F(StorageTest, ChildAndParentAreNilWhereThereIsNone) {
    for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                                    std::string("a\0", 2), std::string(256, 'x')})
        EXPECT_FALSE(item.Child(name)) << name;
    EXPECT_TRUE(item.Child(std::string(255, 'x'))->CreateTextFile());
    EXPECT_EQ(item.Child(".hidden")->Parent()->Path(), folder);
    EXPECT_FALSE(FolderItem("/").Parent());
}

TEST_F(StorageTest, OnlyPlainFilesOpen) {
    fs::create_directory(folder / "directory");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), S_IRWXU), 0);
    for (const char* name : {"directory", "pipe"}) {
        EXPECT_TRUE(item.Child(name)->Exists());
        EXPECT_FALSE(item.Child(name)->OpenAsTextFile()) << name;
        EXPECT_FALSE(item.Child(name)->CreateTextFile()) << name;
    }
}

TEST_F(StorageTest, TheUsersPreferencesFolderFollowsTheEnvironment) {
    SaveText(folder / "file", "in the way");
    const fs::path made = folder / "new" / "config", unmade = folder / "file" / "config";
    setenv("HOME", folder.c_str(), 1);
    for (const auto& [config, expected] : {std::pair(made, made),
                                           {unmade, fs::path()},
                                           {fs::path(), folder / ".config"},
                                           {fs::path("relative/path"), folder / ".config"}}) {
        setenv("XDG_CONFIG_HOME", config.c_str(), 1);
        EXPECT_EQ(UserPreferencesFolder(), expected);
    }
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(UserPreferencesFolder(), folder / ".config");
    for (const fs::path& own : {made, made.parent_path(), folder / ".config"})
        EXPECT_EQ(fs::status(own).permissions(), fs::perms::owner_all);
}

}  // namespace
