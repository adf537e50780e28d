#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/Dictionary.h"
#include "platform/FolderItem.h"
#include "platform/Variant.h"
#include "platform/linux/Clock.h"
#include "platform/linux/PreferencesFolder.h"
#include "tests/support/RecordingHost.h"

namespace fs = std::filesystem;

namespace {

/// Sets an environment variable, or takes it away, until the end of a test.
class ScopedVariable {
  public:
    ScopedVariable(std::string name, const char* value) : name_(std::move(name)) {
        if (const char* const before = getenv(name_.c_str())) before_ = before;
        Set(value);
    }
    ~ScopedVariable() { Set(before_ ? before_->c_str() : nullptr); }

  private:
    void Set(const char* value) { value ? setenv(name_.c_str(), value, 1) : unsetenv(name_.c_str()); }

    std::string name_;
    std::optional<std::string> before_;
};

class StorageTest : public testing::Test {
  protected:
    ~StorageTest() override { Host::Install(nullptr); }

    RecordingHost& host = RecordingHost::InstallNew();
    const fs::path folder = host.preferencesFolder;
    FolderItem item{folder};
};

TEST(VariantTest, ConvertsBetweenTextAndColor) {
    EXPECT_EQ(Variant(Color{0x0A0B0C}).StringValue(), "#0A0B0C");
    EXPECT_EQ(Variant("#fFa001").ColorValue(), Color{0xFFA001});
    EXPECT_EQ(Variant("00FF10").ColorValue(), Color{0x00FF10});
    for (const char* text : {"", "#", "#FFF", "#FFFFFFF", "##FFFFF", "-12345", " FFFFF", "0xFFFF", "#GGGGGG"}) {
        EXPECT_EQ(Variant(text).ColorValue(), Color{}) << text;
    }
}

TEST(VariantTest, PartsOfASharedTextOutliveTheirMaker) {
    auto whole = std::make_shared<const std::string>("one two, long enough to lie on the heap");
    const Variant part(whole, std::string_view(*whole).substr(4, 3));
    whole.reset();
    EXPECT_EQ(part, Variant("two"));
    EXPECT_EQ(part.Hash(), Variant("two").Hash());
}

TEST(DictionaryTest, KeepsTheOrderOfTheFirstStore) {
    Dictionary entries;
    entries.Value("b", "1");
    entries.Value("a", "2");
    entries.Value("b", "3");
    EXPECT_EQ(entries.Keys(), (std::vector<Variant>{"b", "a"}));
    EXPECT_EQ(entries.Values(), (std::vector<Variant>{"3", "2"}));
    EXPECT_EQ(entries.Value("b"), Variant("3"));
    EXPECT_THROW(entries.Value("c"), std::out_of_range);
}

TEST_F(StorageTest, ChildAndParentAreNilWhereThereIsNone) {
    const std::string zero(1, '\0');
    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("a/b"), "a" + zero, std::string(256, 'x')}) {
        EXPECT_FALSE(item.Child(name)) << name;
    }
    EXPECT_TRUE(item.Child(std::string(255, 'x'))->CreateTextFile());
    EXPECT_EQ(item.Child(".hidden")->Parent()->Path(), folder);
    EXPECT_FALSE(FolderItem("/").Parent());
}

TEST_F(StorageTest, TextGoesOutAndInByteForByte) {
    const std::string text("\r\n\0\xFF tail", 9);
    const auto file = item.Child("text");
    EXPECT_FALSE(file->Exists());
    EXPECT_FALSE(file->OpenAsTextFile());
    for (const std::string& written : {text + text, text}) {
        const auto stream = file->CreateTextFile();
        stream->WriteLine(written);
        stream->Close();
    }
    EXPECT_EQ(file->OpenAsTextFile()->ReadAll(), text + "\n");
    file->Delete();
    EXPECT_FALSE(file->Exists());
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

TEST_F(StorageTest, NilTellsWhatWasWanted) {
    try {
        item.Child("missing")->Child("file")->CreateTextFile()->Close();
        FAIL() << "nothing was thrown";
    } catch (const NilObjectException& exception) {
        EXPECT_STREQ(exception.what(), "NilObjectException: no TextOutputStream");
    }
}

TEST_F(StorageTest, UserPreferencesFolderIsMadeForTheUserAlone) {
    const fs::path wanted = folder / "new" / "config";
    const ScopedVariable config("XDG_CONFIG_HOME", wanted.c_str());
    EXPECT_EQ(UserPreferencesFolder(), wanted);
    EXPECT_EQ(fs::status(wanted).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(wanted.parent_path()).permissions(), fs::perms::owner_all);
}

TEST_F(StorageTest, UserPreferencesFolderFallsBackToHome) {
    const ScopedVariable home("HOME", folder.c_str());
    for (const char* useless : {"", "relative/path", static_cast<const char*>(nullptr)}) {
        const ScopedVariable config("XDG_CONFIG_HOME", useless);
        EXPECT_EQ(UserPreferencesFolder(), folder / ".config");
    }
    EXPECT_TRUE(fs::is_directory(folder / ".config"));
}

TEST_F(StorageTest, UserPreferencesFolderIsEmptyWhenItCantBeMade) {
    std::ofstream(folder / "file") << "in the way";
    const ScopedVariable config("XDG_CONFIG_HOME", (folder / "file" / "config").c_str());
    EXPECT_EQ(UserPreferencesFolder(), fs::path());
}

TEST(ClockTest, CountsMicroseconds) {
    const double start = MicrosecondsSinceBoot();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double elapsed = MicrosecondsSinceBoot() - start;
    EXPECT_GE(elapsed, 20'000);
    EXPECT_LT(elapsed, 10'000'000);
}

}  // namespace
