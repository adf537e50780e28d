#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <time.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

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
    EXPECT_EQ(Variant(Color{0}).StringValue(), "#000000");
    EXPECT_EQ(Variant("#fFa001").ColorValue(), Color{0xFFA001});
    EXPECT_EQ(Variant("00FF10").ColorValue(), Color{0x00FF10});
    for (const char* text :
         {"", "#", "#FFF", "#FFFFFFF", "##FFFFF", "-12345", "+12345", " FFFFF", "0xFFFF", "#GGGGGG"}) {
        EXPECT_EQ(Variant(text).ColorValue(), Color{}) << text;
    }
}

TEST(VariantTest, PartsOfASharedTextOutliveTheirMaker) {
    auto whole = std::make_shared<const std::string>("one two, long enough to lie on the heap");
    const Variant part(whole, std::string_view(*whole).substr(4, 3));
    whole.reset();
    EXPECT_EQ(part.StringValue(), "two");
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
}

TEST(DictionaryTest, TellsStringAndColorApart) {
    Dictionary entries;
    entries.Value(Color{0xFF0000}, "colour");
    EXPECT_TRUE(entries.HasKey(Color{0xFF0000}));
    EXPECT_FALSE(entries.HasKey("#FF0000"));
    EXPECT_THROW(entries.Value("#FF0000"), std::out_of_range);
}

TEST_F(StorageTest, ChildIsNilForWhatIsNoName) {
    for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                                    std::string("a\0b", 3), std::string(256, 'x')}) {
        EXPECT_FALSE(item.Child(name)) << name;
    }
    EXPECT_EQ(item.Child(".hidden")->Path(), folder / ".hidden");
    EXPECT_TRUE(item.Child(std::string(255, 'x'))->CreateTextFile());
}

TEST_F(StorageTest, ParentEndsAtTheRoot) {
    EXPECT_EQ(item.Child("a")->Parent()->Path(), folder);
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

    file->CreateTextFile()->Close();
    EXPECT_EQ(file->OpenAsTextFile()->ReadAll(), "");
    file->Delete();
    EXPECT_FALSE(file->Exists());
    file->Delete();
}

TEST_F(StorageTest, OnlyPlainFilesOpen) {
    fs::create_directory(folder / "directory");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const char* name : {"directory", "pipe"}) {
        EXPECT_TRUE(item.Child(name)->Exists());
        EXPECT_FALSE(item.Child(name)->OpenAsTextFile()) << name;
        EXPECT_FALSE(item.Child(name)->CreateTextFile()) << name;
    }
    EXPECT_FALSE(item.Child("missing")->Child("file")->CreateTextFile());
}

TEST_F(StorageTest, NilTellsWhatWasWanted) {
    try {
        item.Child("missing")->Child("file")->CreateTextFile()->Close();
        FAIL() << "nothing was thrown";
    } catch (const NilObjectException& exception) {
        EXPECT_STREQ(exception.what(), "NilObjectException: no TextOutputStream");
    }
}

TEST_F(StorageTest, SpecialFolderIsTheHosts) {
    EXPECT_EQ(SpecialFolder::Preferences()->Path(), folder);
    host.preferencesFolder.clear();
    EXPECT_FALSE(SpecialFolder::Preferences());
    Host::Install(nullptr);
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_THROW(SpecialFolder::Preferences(), NilObjectException);
}

TEST_F(StorageTest, PreferencesFolderIsMadeForTheUserAlone) {
    const fs::path wanted = folder / "new" / "config";
    const ScopedVariable config("XDG_CONFIG_HOME", wanted.c_str());
    EXPECT_EQ(UserPreferencesFolder(), wanted);
    EXPECT_EQ(fs::status(wanted).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(wanted.parent_path()).permissions(), fs::perms::owner_all);
}

TEST_F(StorageTest, PreferencesFolderFallsBackToHome) {
    const ScopedVariable home("HOME", folder.c_str());
    for (const char* useless : {"", "relative/path", static_cast<const char*>(nullptr)}) {
        const ScopedVariable config("XDG_CONFIG_HOME", useless);
        EXPECT_EQ(UserPreferencesFolder(), folder / ".config");
    }
    EXPECT_TRUE(fs::is_directory(folder / ".config"));
}

TEST_F(StorageTest, PreferencesFolderIsEmptyWhenItCantBeMade) {
    std::ofstream(folder / "file") << "in the way";
    const ScopedVariable config("XDG_CONFIG_HOME", (folder / "file" / "config").c_str());
    EXPECT_EQ(UserPreferencesFolder(), fs::path());
}

TEST(ClockTest, CountsMicroseconds) {
    const double start = MicrosecondsSinceBoot();
    const timespec pause{0, 20'000'000};
    nanosleep(&pause, nullptr);
    EXPECT_GE(MicrosecondsSinceBoot() - start, 20'000);
    EXPECT_LT(MicrosecondsSinceBoot() - start, 10'000'000);
}

}  // namespace
