#include <gmock/gmock.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>
#include <string>

#include "platform/Variant.h"
#include "tests/support/Files.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kDefaults = "#9F9F9F #FF0000 #FFFFFF #000000 ";  // background, wedge, face, frame

class TimerSettingsTest : public TimerWindowTest {
  protected:
    static int StatusAfterClose() {
        QTimer::singleShot(0, qApp, [] { End(Timer()); });
        const int status = QCoreApplication::exec();
        QCoreApplication::processEvents();
        return status;
    }
    static std::string Shown() {
        std::string shown;
        for (const Color color : {Timer().Color_Window_Background, Timer().Color_Clock_Wedge, Timer().Color_Clock_Face,
                                  Timer().Color_Clock_Frame})
            shown += Variant(color).StringValue() + " ";
        return shown;
    }
    /// All values that the file holds.
    std::string Saved() const {
        static const QRegularExpression value("<string>(.*)</string>");
        QString saved;
        for (const auto& match : value.globalMatch(QString::fromStdString(LoadText(file))))
            saved += match.captured(1) + " ";
        return saved.toStdString();
    }

    const std::filesystem::path file = host.preferencesFolder / "DwindledialPrefs.plist";
};

TEST_F(TimerSettingsTest, OpensWithWhatTheFileHoldsAndClosesWithFourEntries) {
    EXPECT_EQ(Shown(), kDefaults);
    EXPECT_EQ(Saved(), kDefaults) << "left behind by a first run";
    for (const auto& [text, shown] :
         {std::pair<std::string, std::string>("<plist><dict></dict></plist>\n", kDefaults),
          {"<key>foreign</key><string>#12</string><key>Color_Clock_Frame</key><string>#654321</string>",
           "#9F9F9F #FF0000 #FFFFFF #654321 "},
          {"<key>Color_Clock_Face</key><string>a mistake</string>", "#9F9F9F #FF0000 #000000 #000000 "}}) {
        SCOPED_TRACE(text);
        End(Timer());
        SaveText(file, text);
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(LoadText(file) == text, text.find("<key>") != std::string::npos) << "one without a key is replaced";
        End(Timer());
        EXPECT_EQ(Saved(), shown);
    }
    EXPECT_THAT(host.messages, IsEmpty());
}

// A message comes once in the life of a process; no other test here provokes these two.
TEST_F(TimerSettingsTest, WhereNothingCanBeStoredItRunsOnTheDefaults) {
    for (const auto& [folder, missing] :
         {std::pair(host.preferencesFolder / "missing", "TextOutputStream"), {std::filesystem::path(), "FolderItem"}}) {
        host.preferencesFolder = folder;
        host.messages.clear();
        EXPECT_EQ(Shown(), kDefaults);
        StartFrom(60);
        EXPECT_TRUE(Timer().IsRunning && Timer().Visible());
        QCoreApplication::processEvents();
        EXPECT_EQ(StatusAfterClose(), 1);
        EXPECT_THAT(host.messages, ElementsAre(std::string("Unexpected error: NilObjectException: no ") + missing));
    }
}

}  // namespace
