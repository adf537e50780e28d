#include "settings/Preferences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "platform/Ref.h"
#include "tests/support/RecordingHost.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Writes down every entry that is stored, as "key=value".
class RecordingPreferences : public Preferences {
  public:
    std::vector<std::string> puts;

    void Put(const std::string& key, const Variant& value) override {
        puts.push_back(key + "=" + value.StringValue());
        Preferences::Put(key, value);
    }
};

class PreferencesTest : public testing::Test {
  protected:
    PreferencesTest() {
        store.Constructor();
        store.Filename = "settings.plist";
    }
    ~PreferencesTest() override { Host::Install(nullptr); }

    void Save(const std::string& text) const { std::ofstream(file, std::ios::binary) << text; }

    std::string Load() const {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::vector<std::string> EntriesOf(const std::string& text) const {
        Save(text);
        RecordingPreferences reader;
        reader.Constructor();
        reader.Filename = store.Filename;
        reader.ReadFile();
        return reader.puts;
    }

    std::string Value(const std::string& key) { return store.Get(key, "(none)").StringValue(); }

    RecordingHost& host = RecordingHost::InstallNew();
    const fs::path file = host.preferencesFolder / "settings.plist";
    Preferences store;
};

TEST_F(PreferencesTest, WritesThePropertyListByteForByte) {
    store.Put("K", "V & W");
    store.Put("Colour", Color{0xFF8001});
    Save(std::string(1000, '.'));
    store.WriteFile();
    EXPECT_EQ(Load(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n"
              "<dict>\n\t<key>K</key>\n\t\n\t<string>V & W</string>\n\t\n"
              "\t<key>Colour</key>\n\t\n\t<string>#FF8001</string>\n\t</dict>\n</plist>\n\n");
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(PreferencesTest, ReadsBackWhatItWrote) {
    const std::vector<std::string> texts = {"", " \t\n", "a & b &amp; <c>", "\xC3\xA9\xFF", "/key><key", "k"};
    for (const auto& text : texts)
        store.Put(text, "value of " + text);
    store.WriteFile();
    store.Clear();
    ASSERT_TRUE(store.ReadFile());
    for (const auto& text : texts)
        EXPECT_EQ(Value(text), "value of " + text);
}

TEST_F(PreferencesTest, RefusesToWriteWithoutEntries) {
    Save("kept");
    store.WriteFile();
    store.Put("a", "1");
    store.Clear();
    store.WriteFile();
    const std::string message = "can't write preferences because none have been set";
    EXPECT_THAT(host.messages, ElementsAre(message, message));
    EXPECT_EQ(Load(), "kept");
}

TEST_F(PreferencesTest, TellsWhenNoNameIsSet) {
    store.Filename.clear();
    EXPECT_FALSE(store.ReadFile());
    store.WriteFile();
    store.WritePagePrefsFile("text");
    EXPECT_EQ(store.ReadPagePrefsFile(), "");
    EXPECT_THAT(host.messages, ElementsAre("Can't read preferences because no filename has been set",
                                           "can't write preferences because no filename has been set",
                                           "can't write page preferences because no filename has been set",
                                           "Can't read preferences because no filename has been set"));
}

TEST_F(PreferencesTest, TellsWhenNoFileCanHaveTheName) {
    store.Put("a", "1");
    store.Filename = store.PagePrefsFilename = "a/b";
    store.WriteFile();
    store.WritePagePrefsFile("text");
    EXPECT_THAT(host.messages, ElementsAre("couldn't write preferences File", "couldn't write page preferences File"));
    EXPECT_THROW(store.ReadFile(), NilObjectException);
}

TEST_F(PreferencesTest, FilesAndFoldersThatCantBeUsedThrow) {
    fs::create_directories(file / "not empty");
    store.Put("a", "1");
    EXPECT_THROW(store.ReadFile(), NilObjectException);
    EXPECT_THROW(store.WriteFile(), NilObjectException);
    host.preferencesFolder.clear();
    EXPECT_THROW(store.ReadFile(), NilObjectException);
    EXPECT_THROW(store.WriteFile(), NilObjectException);
    EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(PreferencesTest, AFileWithoutAKeyReadsAsMissing) {
    EXPECT_FALSE(store.ReadFile());
    for (const char* text : {"", "<?xml version=\"1.0\"?>\n<plist>\n", "<string>1</string>", "<key>a", "</key><key>"}) {
        Save(text);
        EXPECT_FALSE(store.ReadFile()) << text;
    }
    store.WriteFile();
    EXPECT_THAT(host.messages, ElementsAre("can't write preferences because none have been set"));
}

TEST_F(PreferencesTest, ReadingAddsToWhatIsThere) {
    store.Put("a", "old");
    Save("<key>b</key><string>1</string><key>c</key><string>2</string><key>b</key><string>3</string>");
    EXPECT_TRUE(store.ReadFile());
    EXPECT_EQ(Value("a"), "old");
    EXPECT_EQ(Value("b"), "3");
    EXPECT_EQ(Value("c"), "2");
}

TEST_F(PreferencesTest, OnlyTheFourTagsCount) {
    EXPECT_THAT(EntriesOf("<key>a</key><integer>1</integer><key>b</key><string>2</string>"), ElementsAre("a=2"));
    EXPECT_THAT(EntriesOf("<!-- <key>a</key> --><string>1<!-- --></string>"), ElementsAre("a=1<!-- -->"));
    EXPECT_THAT(EntriesOf("<key> a\n</key> <STRING>1</STRING> <string>2 </string>"), ElementsAre(" a\n=2 "));
    EXPECT_THAT(EntriesOf("<key>a</key><string>1"), ElementsAre("a="));
}

TEST_F(PreferencesTest, AKeyWithinAValueBeginsAnEntry) {
    EXPECT_THAT(EntriesOf("<key>a</key><string>x<key>b</key><string>2</string>"),
                ElementsAre("a=x<key>b</key><string>2", "b=2"));
    // The search goes on behind the first byte of the value.
    EXPECT_THAT(EntriesOf("<key>a</key><string><key>b</key><string>2</string>"),
                ElementsAre("a=<key>b</key><string>2"));
}

TEST_F(PreferencesTest, AScanThatComesBackEnds) {
    const std::string head = "<plist><dict>";
    const std::string entry = "<key>a</key><string>1</string>";
    // No string behind the key: its value is sought from byte 8 on.
    EXPECT_THAT(EntriesOf(head + entry + "<key>b</key></dict>"), ElementsAre("a=1", "b=<dict><key>a</key><string>1"));
    EXPECT_THAT(EntriesOf(entry + "<key>b</key>"), ElementsAre("a=1", "b=/key><string>1"));
    EXPECT_THAT(EntriesOf(head + "<key>a</key>"), ElementsAre("a="));
    EXPECT_THAT(EntriesOf("<key></key>"), ElementsAre("="));
    // An unclosed key goes back to the first string.
    EXPECT_THAT(EntriesOf(head + entry + "<key>b"), ElementsAre("a=1"));
    EXPECT_THAT(EntriesOf("<string>0</string>" + entry + "<key>b"), ElementsAre("a=1", "=0"));

    Save(head + entry + "<key>a</key><string>2</string><key>b</key>");
    EXPECT_TRUE(store.ReadFile());
    EXPECT_EQ(Value("a"), "2") << "an entry that was seen before came again";
}

TEST_F(PreferencesTest, ADefaultOnceGivenIsWritten) {
    Save("<key>a</key><string>1</string>");
    store.ReadFile();
    EXPECT_EQ(store.Get("a", "default"), Variant("1"));
    EXPECT_EQ(store.Get("b", Color{0x123456}), Variant(Color{0x123456}));
    EXPECT_EQ(store.Get("b", "another"), Variant(Color{0x123456}));
    store.WriteFile();
    EXPECT_THAT(EntriesOf(Load()), ElementsAre("a=1", "b=#123456"));
}

TEST_F(PreferencesTest, ThePageFileHoldsAnyText) {
    store.PagePrefsFilename = "page";
    EXPECT_EQ(store.ReadPagePrefsFile(), "");
    store.WritePagePrefsFile("first, and longer");
    store.WritePagePrefsFile("<key> & \n");
    EXPECT_EQ(store.ReadPagePrefsFile(), "<key> & \n\n");
    store.PagePrefsFilename.clear();
    EXPECT_THROW(store.ReadPagePrefsFile(), NilObjectException);
    EXPECT_THAT(host.messages, IsEmpty());
}

class BigFileTest : public PreferencesTest {
  protected:
    static constexpr std::size_t kSize = 10'000'000;
    // Ample for a build with no optimisation; a search that starts over for each entry takes hours.
    static constexpr double kMostSeconds = 3;

    void ExpectQuickRead(const std::string& text) {
        Save(text);
        store.Clear();
        const auto start = std::chrono::steady_clock::now();
        store.ReadFile();
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        EXPECT_LT(seconds.count(), kMostSeconds) << text.substr(0, 60);
    }
};

TEST_F(BigFileTest, NoiseIsReadQuickly) {
    const std::vector<std::string> pieces = {"<key>", "</key>", "<string>", "</string>", "<", "\n", "\xFF", "k"};
    std::mt19937 random(1);
    std::string text;
    while (text.size() < kSize)
        text += pieces[random() % pieces.size()];
    ExpectQuickRead(text);
}

TEST_F(BigFileTest, RepeatedTagsAreReadQuickly) {
    const std::string entry = "<key>a</key><string>1</string>";
    for (const char* unit : {"<", "<key>", "</key>", "<string>", "<key>k</key>", "<key>k</key><string>",
                             "<key>k</key><string>.", "<key>k</key><string></string>"}) {
        std::string text;
        while (text.size() < kSize)
            text += unit;
        for (const std::string& hostile : {entry + text, text + entry, text + "</key>"})
            ExpectQuickRead(hostile);
    }
}

TEST_F(BigFileTest, ValuesThatAllReachToTheEndAreKept) {
    std::string text;
    int count = 0;
    for (; text.size() < kSize; ++count)
        text += "<key>" + std::to_string(count) + "</key><string>.";
    ExpectQuickRead(text + "</string>");
    EXPECT_EQ(Value("0"), text.substr(std::string("<key>0</key><string>").size()));
    EXPECT_EQ(Value(std::to_string(count - 1)), ".");
}

}  // namespace
