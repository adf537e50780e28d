#include "settings/Preferences.h"

#include <QtCore/QTimer>

#include "tests/support/Files.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;

/// Writes down every entry that is stored, as "key=value".
struct RecordingPreferences final : Preferences {
    std::vector<std::string> puts;

    void Put(const std::string& key, const Variant& value) override {
        puts.push_back(key + "=" + value.StringValue());
        Preferences::Put(key, value);
    }
};

class PreferencesTest : public testing::Test {
  protected:
    PreferencesTest() { store.Filename = "settings.plist"; }

    std::vector<std::string> EntriesOf(const std::string& text) const {
        SaveText(file, text);
        RecordingPreferences reader;
        reader.Filename = store.Filename;
        const bool hasEntries = reader.ReadFile();
        EXPECT_EQ(hasEntries, !reader.puts.empty());
        return reader.puts;
    }

    RecordingHost& host = RecordingHost::InstallNew();
    const std::filesystem::path file = host.preferencesFolder / "settings.plist";
    Preferences store;
};

TEST_F(PreferencesTest, WritesThePropertyListAndThePageByteForByte) {
    SaveText(file, "<key>K</key><string>V & W</string><key>b</key><string>1</string><key>K</key><string>V</string>" +
                       std::string(1000, ' '));
    store.Put("b", "old");
    EXPECT_TRUE(store.ReadFile());
    EXPECT_EQ(store.Get("Colour", Color{0xFF8001}).ColorValue(), Color{0xFF8001});
    EXPECT_EQ(store.Get("Colour", "another").ColorValue(), Color{0xFF8001}) << "a default once given is kept";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);  // in the way, but empty
    store.WriteFile();
    EXPECT_EQ(LoadText(file),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n"
              "<dict>\n\t<key>b</key>\n\t\n\t<string>1</string>\n\t\n"
              "\t<key>K</key>\n\t\n\t<string>V</string>\n\t\n"
              "\t<key>Colour</key>\n\t\n\t<string>#FF8001</string>\n\t</dict>\n</plist>\n\n");
    store.PagePrefsFilename = "page";
    EXPECT_EQ(store.ReadPagePrefsFile(), "");
    store.WritePagePrefsFile("<key> & \n");
    EXPECT_EQ(store.ReadPagePrefsFile(), "<key> & \n\n");
}

TEST_F(PreferencesTest, TellsWhatIsMissing) {
    store.WriteFile();
    store.Filename.clear();
    EXPECT_FALSE(store.ReadFile());
    store.WriteFile();
    store.WritePagePrefsFile("text");
    store.Put("a", "1");
    store.Filename = store.PagePrefsFilename = "a/b";  // which no file can be called
    store.WriteFile();
    store.WritePagePrefsFile("text");
    EXPECT_THAT(host.messages, ElementsAre("can't write preferences because none have been set",
                                           "Can't read preferences because no filename has been set",
                                           "can't write preferences because no filename has been set",
                                           "can't write page preferences because no filename has been set",
                                           "couldn't write preferences File", "couldn't write page preferences File"));
    EXPECT_THROW(store.ReadFile(), NilObjectException);
    host.preferencesFolder.clear();
    EXPECT_THROW(store.WriteFile(), NilObjectException);
}

// The file, and the entries that are stored in their order.
TEST_F(PreferencesTest, FourTagsCountWhereverTheyAre) {
    const std::string entry = "<key>a</key><string>1</string>";
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"</key><key>", {}},
        {"<!-- <key>a</key> --><string>1<!-- --></string>", {"a=1<!-- -->"}},
        // The search goes on behind the first byte of the value.
        {"<key>a</key><string><key>b</key><string>2</string>", {"a=<key>b</key><string>2"}},
        // What isn't found leads back to the beginning, until a place comes again. That pass counts too.
        {entry + "<key>b</key>", {"a=1", "b=/key><string>1", "b=/key><string>1"}},
        {"<string>0</string>" + entry + "<key>b", {"a=1", "=0", "a=1"}},
    };
    for (const auto& [text, entries] : rows)
        EXPECT_EQ(EntriesOf(text), entries);
}

class TimerSettingsTest : public TimerWindowTest {
  protected:
    static int StatusAfterClose() {
        QTimer::singleShot(0, qApp, [] { End(Timer()); });
        const int status = QCoreApplication::exec();
        QCoreApplication::processEvents();
        return status;
    }
    /// The colours of background, wedge, face and frame.
    static std::string Shown() {
        std::string shown;
        for (const auto& [key, colour] : kColourSettings)
            shown += Variant(Timer().*colour).StringValue();
        return shown;
    }

    const std::string defaults = "#9F9F9F#FF0000#FFFFFF#000000";
    const std::filesystem::path file = host.preferencesFolder / "DwindledialPrefs.plist";
};

TEST_F(TimerSettingsTest, TheColoursAreKeptFromTheFirstRunOn) {
    EXPECT_EQ(Shown(), defaults);
    const std::string fileOfDefaults = LoadText(file);
    EXPECT_EQ(StatusAfterClose(), 0);
    EXPECT_EQ(LoadText(file), fileOfDefaults) << "a first run leaves what an end does";

    SaveText(file, "<key>Color_Clock_Face</key><string>#654321</string><key>Color_Clock_Frame</key><string>?</string>");
    EXPECT_EQ(Shown(), "#9F9F9F#FF0000#654321#000000");
    Timer().Color_Window_Background = RGB(1, 2, 3);
    End(Timer());
    EXPECT_EQ(Shown(), "#010203#FF0000#654321#000000");
    End(Timer());

    SaveText(file, "<plist><dict></dict></plist>");
    EXPECT_EQ(Shown(), defaults);
    EXPECT_EQ(LoadText(file), fileOfDefaults) << "a file without a key is replaced";
}

TEST_F(TimerSettingsTest, WhereNothingCanBeStoredItRunsOnTheDefaults) {
    std::filesystem::create_directories(file / "not empty");
    const std::filesystem::path inTheWay = host.preferencesFolder / "file";
    SaveText(inTheWay, "");
    for (const auto& folder : {file.parent_path(), inTheWay / "new"}) {
        host.preferencesFolder = folder;
        EXPECT_EQ(Shown(), defaults);
        QCoreApplication::processEvents();
        EXPECT_EQ(StatusAfterClose(), 1);
    }
    EXPECT_THAT(host.messages, ElementsAre(testing::HasSubstr(" can't be read: it isn't a plain file. The clock has"),
                                           testing::HasSubstr("/new can't be made: ")));
}

}  // namespace
