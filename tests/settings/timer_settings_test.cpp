#include <gmock/gmock.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "platform/Variant.h"
#include "tests/support/TimerWindowTest.h"

namespace fs = std::filesystem;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The colours by the names of their settings.
using Colours = std::map<std::string, std::string>;

Colours DefaultsBut(Colours colours) {
    colours.insert({{"Color_Window_Background", "#9F9F9F"},
                    {"Color_Clock_Wedge", "#FF0000"},
                    {"Color_Clock_Face", "#FFFFFF"},
                    {"Color_Clock_Frame", "#000000"}});
    return colours;
}
const Colours kDefaults = DefaultsBut({});

std::string Entry(const std::string& key, const std::string& value) {
    return "<key>" + key + "</key><string>" + value + "</string>";
}

class TimerSettingsTest : public TimerWindowTest {
  protected:
    static void CloseTimer() {
        Timer().Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static int StatusAfterClose() {
        QTimer::singleShot(0, qApp, CloseTimer);
        return QCoreApplication::exec();
    }

    static Colours Shown() {
        const auto text = [](Color color) { return Variant(color).StringValue(); };
        return {{"Color_Window_Background", text(Timer().Color_Window_Background)},
                {"Color_Clock_Wedge", text(Timer().Color_Clock_Wedge)},
                {"Color_Clock_Face", text(Timer().Color_Clock_Face)},
                {"Color_Clock_Frame", text(Timer().Color_Clock_Frame)}};
    }

    std::string Load() const {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// All that the file holds; an entry that stands there twice shows as such.
    Colours Saved() const {
        static const QRegularExpression entry("<key>(.*)</key>\\s*<string>(.*)</string>");
        Colours saved;
        for (const auto& match : entry.globalMatch(QString::fromStdString(Load())))
            saved[match.captured(1).toStdString()] += match.captured(2).toStdString();
        return saved;
    }

    const fs::path file = host.preferencesFolder / "DwindledialPrefs.plist";
};

TEST_F(TimerSettingsTest, AFirstRunShowsTheDefaultsAndLeavesThemBehindAtOnce) {
    EXPECT_EQ(Shown(), kDefaults);
    EXPECT_EQ(Saved(), kDefaults);
    EXPECT_EQ(std::distance(fs::directory_iterator(host.preferencesFolder), {}), 1);
    EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(TimerSettingsTest, OpensWithWhatTheFileHoldsAndClosesWithFourEntries) {
    struct Row {
        std::string file;
        Colours shown;
        bool isReplacedAtOnce = false;
    };
    for (const Row& row : {Row{"", kDefaults, true}, Row{"<plist><dict></dict></plist>\n", kDefaults, true},
                           Row{Entry("Color_Clock_Wedge", "#0080FF"), DefaultsBut({{"Color_Clock_Wedge", "#0080FF"}})},
                           Row{Entry("foreign", "#12") + Entry("Color_Clock_Frame", "#654321"),
                               DefaultsBut({{"Color_Clock_Frame", "#654321"}})},
                           Row{Entry("Color_Clock_Face", "a mistake"), DefaultsBut({{"Color_Clock_Face", "#000000"}})},
                           Row{"<key>Color_Clock_Face</key>", DefaultsBut({{"Color_Clock_Face", "#000000"}})}}) {
        SCOPED_TRACE(row.file);
        CloseTimer();
        std::ofstream(file, std::ios::binary) << row.file;
        EXPECT_EQ(Shown(), row.shown);
        EXPECT_EQ(Load() == row.file, !row.isReplacedAtOnce);
        EXPECT_EQ(Saved() == row.shown, row.isReplacedAtOnce);
        CloseTimer();
        EXPECT_EQ(Saved(), row.shown);
    }
    EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(TimerSettingsTest, OnlyTheColoursComeBack) {
    const Colours changed = {{"Color_Window_Background", "#010203"},
                             {"Color_Clock_Wedge", "#040506"},
                             {"Color_Clock_Face", "#FDFEFF"},
                             {"Color_Clock_Frame", "#0A0B0C"}};
    Timer().Color_Window_Background = RGB(1, 2, 3);
    Timer().Color_Clock_Wedge = RGB(4, 5, 6);
    Timer().Color_Clock_Face = RGB(253, 254, 255);
    Timer().Color_Clock_Frame = RGB(10, 11, 12);
    Timer().SetMinutes = 7;
    StartFrom(420);
    EXPECT_EQ(Saved(), kDefaults);
    EXPECT_EQ(StatusAfterClose(), 0);
    EXPECT_EQ(Saved(), changed);
    EXPECT_EQ(Shown(), changed);
    EXPECT_FALSE(Timer().IsRunning);
    EXPECT_EQ(Timer().SetMinutes + Timer().CurrentSeconds, 0);
}

// A message comes once in the life of a process; no other test here provokes these two.

TEST_F(TimerSettingsTest, WhereNothingCanBeWrittenItRunsOnTheDefaults) {
    host.preferencesFolder /= "missing";
    EXPECT_EQ(Shown(), kDefaults);
    EXPECT_TRUE(Timer().Visible());
    QCoreApplication::processEvents();
    EXPECT_EQ(StatusAfterClose(), 1);
    QCoreApplication::processEvents();
    EXPECT_THAT(host.messages, ElementsAre("Unexpected error: NilObjectException: no TextOutputStream"));
}

TEST_F(TimerSettingsTest, WithoutAFolderForSettingsItRunsOnTheDefaultsToo) {
    host.preferencesFolder.clear();
    EXPECT_EQ(Shown(), kDefaults);
    StartFrom(60);
    EXPECT_TRUE(Timer().IsRunning);
    EXPECT_TRUE(Timer().Visible());
    QCoreApplication::processEvents();
    EXPECT_EQ(StatusAfterClose(), 1);
    QCoreApplication::processEvents();
    EXPECT_THAT(host.messages, ElementsAre("Unexpected error: NilObjectException: no FolderItem"));
}

}  // namespace
