#include <gmock/gmock.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>
#include <fstream>
#include <iterator>

#include "movie/FileTypes.h"
#include "movie/winMakeMovie.h"
#include "platform/Controls.h"
#include "platform/Thread.h"
#include "platform/qt/OpenWindows.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class MakeMovieTest : public TimerWindowTest {
  protected:
    MakeMovieTest() {
        FileTypes::_Initialize();
        host.fileToSave = host.preferencesFolder / "clock.mov";
        Timer();
    }
    ~MakeMovieTest() override {
        if (IsOpen()) Dialog().Close();
    }

    static winMakeMovie& Dialog() { return winMakeMovie::Instance(); }
    static bool IsOpen() { return open_windows::Find("winMakeMovie.winMakeMovie") != nullptr; }
    static EditField& Field(const std::string& name) { return Dialog().Find<EditField>(name); }
    static std::string SizeText() { return Dialog().Find<StaticText>("lSize").Text(); }
    static bool IsRunning() { return Dialog().Find<Thread>("thr").State() == Thread::States::Running; }
    static bool IsIdle() {
        return !IsRunning() && Dialog().Find<GroupBox>("GroupBox1").Enabled() &&
               Dialog().Find<PushButton>("bStart").Enabled() && !Dialog().Find<ProgressBar>("ProgressBar1").Visible();
    }

    static void Set(const std::string& start, const std::string& rate, bool compress = false) {
        Field("eStart").Text(start);
        Field("eFrameRate").Text(rate);
        Field("eSizeX").Text("48");
        Field("eSizeY").Text("33");
        Dialog().Find<CheckBox>("CheckBox1").Value(compress);
    }

    static bool Eventually(const std::function<bool()>& condition) {
        for (QElapsedTimer timer = (timer.start(), timer); !condition(); QThread::msleep(1)) {
            if (timer.hasExpired(30'000)) return false;
            QCoreApplication::processEvents();
        }
        return true;
    }
    /// Whether a job has begun, that is, shows in the dialog, and then ends.
    static bool RunsToItsEnd() {
        Dialog().bStart_Action();
        return Eventually([] { return !IsIdle(); }) && Eventually(IsIdle);
    }

    std::string Movie() const {
        std::ifstream file(host.fileToSave, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The number of samples, as the table of their sizes begins.
    Int32 FrameCount() const {
        const std::string movie = Movie();
        const std::size_t count = movie.find("stsz") + 12;
        Int32 frames = 0;
        for (std::size_t i = count; i < count + 4; ++i)
            frames = frames << 8 | static_cast<unsigned char>(movie.at(i));
        return frames;
    }
};

TEST_F(MakeMovieTest, EstimatesTheSizeFromTheFieldsAsTheyStand) {
    EXPECT_EQ(SizeText(), "Uncompressed movie file size: 791.0MB");
    Field("eSizeX").Text("1920");
    Field("eSizeY").Text("1080");
    Field("eFrameRate").Text("30 a second");
    EXPECT_EQ(SizeText(), "Uncompressed movie file size: 640,722.7MB");
    Field("eScale").Text("10");
    EXPECT_EQ(SizeText(), "Uncompressed movie file size: 640,722.7MB");
    Field("eStart").Text("");
    EXPECT_EQ(SizeText(), "Uncompressed movie file size: 0.0MB");
}

TEST_F(MakeMovieTest, JudgesADigitAtTheEndOfTheStartTime) {
    struct Row {
        std::string text, key;
        bool isSwallowed;
    };
    for (const Row& row :
         {Row{"360", "0", false}, Row{"360", "1", true}, Row{"361", "0", true}, Row{"3600", "0", true},
          Row{"", "0", false}, Row{"12", "a", true}, Row{"12", "-", true}, Row{"12", ".", true}, Row{"12", " ", true},
          Row{"12", "\r", false}, Row{"12", "\x08", false}, Row{"12", "ä", false}, Row{"-5", "1", true}}) {
        Field("eStart").Text(row.text);
        EXPECT_EQ(Dialog().eStart_KeyDown(row.key), row.isSwallowed) << row.text << " and " << row.key;
        EXPECT_EQ(Field("eStart").Text(), row.text);
    }
}

TEST_F(MakeMovieTest, RaisesWhatIsTooLowAndShowsIt) {
    host.fileToSave.clear();
    struct Row {
        std::string x, y, rate, scale, shownX, shownY, shownRate, shownScale;
    };
    for (const Row& row : {Row{"31", "320.9", "0", "0", "32", "320", "0.016666666666666", "1"},
                           Row{"", "9999", "29.97", "33.5", "32", "9999", "29.97", "34"},
                           Row{"abc", "-5", "-1", "250", "32", "32", "0.016666666666666", "250"}}) {
        Field("eSizeX").Text(row.x);
        Field("eSizeY").Text(row.y);
        Field("eFrameRate").Text(row.rate);
        Field("eScale").Text(row.scale);
        Dialog().bStart_Action();
        EXPECT_EQ(Field("eSizeX").Text(), row.shownX);
        EXPECT_EQ(Field("eSizeY").Text(), row.shownY);
        EXPECT_EQ(Field("eFrameRate").Text(), row.shownRate);
        EXPECT_EQ(Field("eScale").Text(), row.shownScale);
        EXPECT_TRUE(IsIdle());
    }
}

TEST_F(MakeMovieTest, MakesOneMovieAfterTheOther) {
    Set("2", "10");
    Dialog().Find<CheckBox>("CheckBox2").Value(true);
    ASSERT_TRUE(RunsToItsEnd());
    EXPECT_THAT(host.calls, Contains("SaveFile video/quicktime (*.moov *.mov *.qt *.mqv), Dwindledial.mov"));
    EXPECT_THAT(host.calls, Contains("Launch " + host.fileToSave.string()));
    EXPECT_EQ(Dialog().f, nullptr);
    EXPECT_EQ(FrameCount(), 21);
    const std::string first = Movie();
    Dialog().Find<CheckBox>("CheckBox2").Value(false);
    host.calls.clear();
    ASSERT_TRUE(RunsToItsEnd());
    EXPECT_THAT(host.calls, Not(Contains(HasSubstr("Launch"))));
    EXPECT_EQ(Movie(), first);
}

TEST_F(MakeMovieTest, CancelStopsTheJobAndThenClosesTheDialog) {
    Set("3600", "30");
    Dialog().Find<CheckBox>("CheckBox2").Value(true);
    Dialog().bStart_Action();
    ASSERT_TRUE(Eventually([] { return Dialog().Find<ProgressBar>("ProgressBar1").Value() > 20; }));
    EXPECT_FALSE(Dialog().Find<GroupBox>("GroupBox1").Enabled());
    Dialog().bCancel_Action();
    ASSERT_TRUE(IsOpen());
    ASSERT_TRUE(Eventually(IsIdle));
    EXPECT_THAT(host.calls, Not(Contains(HasSubstr("Launch"))));
    EXPECT_GT(FrameCount(), 20);
    EXPECT_LT(FrameCount(), 108'001);
    Dialog().bCancel_Action();
    EXPECT_FALSE(IsOpen());
}

TEST_F(MakeMovieTest, TheChosenRateReplacesTheTypedOne) {
    host.chosenCompression = CompressionSettings{MovieCodec::Png, 75, 5};
    Set("4", "1", true);
    ASSERT_TRUE(RunsToItsEnd());
    EXPECT_EQ(host.proposedCompression.codec, MovieCodec::H264);
    EXPECT_EQ(host.proposedCompression.frameRate, 1);
    EXPECT_EQ(FrameCount(), 21);
    EXPECT_EQ(Field("eFrameRate").Text(), "1");
}

TEST_F(MakeMovieTest, WhatFailsBeforeTheJobLeavesNothingBehind) {
    Set("4", "1", true);
    host.isCompressionConfirmed = false;
    Dialog().bStart_Action();
    EXPECT_FALSE(std::filesystem::exists(host.fileToSave));
    EXPECT_EQ(Dialog().f, nullptr);

    host.fileToSave = host.preferencesFolder;  // a name that is a folder
    Dialog().bStart_Action();
    EXPECT_NE(Dialog().f, nullptr);
    EXPECT_TRUE(std::filesystem::exists(host.preferencesFolder));

    host.fileToSave.clear();
    Dialog().bStart_Action();
    EXPECT_EQ(Dialog().f, nullptr);
    EXPECT_TRUE(IsIdle());
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MakeMovieTest, TheEndOfTheProgramEndsTheJobAndKeepsTheMovie) {
    Set("3600", "30");
    Dialog().bStart_Action();
    ASSERT_TRUE(Eventually([] { return Dialog().Find<ProgressBar>("ProgressBar1").Value() > 20; }));
    QElapsedTimer timer;
    timer.start();
    open_windows::Clear();
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_GT(FrameCount(), 20);
}

}  // namespace
