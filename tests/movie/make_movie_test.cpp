#include <QtCore/QtEndian>
#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>

#include "movie/FileTypes.h"
#include "movie/FrameSequence.h"
#include "movie/winMakeMovie.h"
#include "platform/Controls.h"
#include "platform/Thread.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/dialogs/CompressionDialog.h"
#include "platform/qt/window/OpenWindows.h"
#include "tests/support/Files.h"
#include "tests/support/TimerWindowTest.h"

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

TEST(FrameSequenceTest, GoesFromTheFullTimeToZeroAndIsHeldAtTheFullClock) {
    const std::pair<FrameSequence, std::vector<Int32>> rows[] = {
        {{4, 2}, {4, 3, 3, 2, 2, 1, 1, 0, 0}}, {{7, 0.3}, {10, 6, 3, 0}}, {{0, 29.97}, {0}}, {{-1, 1}, {}}};
    for (const auto& [frames, seconds] : rows) {
        std::vector<Int32> shown;
        for (Int32 i = frames.Count(); i >= 0; --i)
            shown.push_back(frames.Seconds(i));
        EXPECT_EQ(shown, seconds);
    }
    EXPECT_EQ(FrameSequence(3600, 0.07).Seconds(253), 3600);
    EXPECT_EQ(FrameSequence(100, 1.1).Seconds(33), 29) << "29.999999999999996 is cut as it falls";
}

class MakeMovieTest : public TimerWindowTest {
  protected:
    MakeMovieTest() {
        FileTypes::_Initialize();
        host.fileToSave = host.preferencesFolder / "clock.mov";
        Timer();
    }
    ~MakeMovieTest() override { End(Dialog()); }

    static winMakeMovie& Dialog() { return winMakeMovie::Instance(); }
    static bool IsOpen() { return open_windows::Find("winMakeMovie.winMakeMovie") != nullptr; }
    static EditField& Field(const char* name) { return Dialog().Find<EditField>(name); }
    static QProgressBar& Progress() { return WidgetOf<QProgressBar>(Dialog().Find<ProgressBar>("ProgressBar1")); }
    static bool IsIdle() {
        return Dialog().Find<Thread>("thr").State() != Thread::States::Running && Progress().isHidden() &&
               Dialog().Find<GroupBox>("GroupBox1").Enabled() && Dialog().Find<PushButton>("bStart").Enabled();
    }
    static void Set(const char* start, const char* rate, bool compress, bool open) {
        Field("eStart").Text(start);
        Field("eFrameRate").Text(rate);
        Field("eSizeX").Text("48");
        Field("eSizeY").Text("33");
        Dialog().Find<CheckBox>("CheckBox1").Value(compress);
        Dialog().Find<CheckBox>("CheckBox2").Value(open);
    }

    /// Whether a job has begun, that is, shows in the dialog, and then ends.
    static bool RunsToItsEnd() {
        Dialog().bStart_Action();
        return Eventually([] { return !IsIdle(); }) && Eventually(IsIdle);
    }
    static bool IsUnderWay() {
        Dialog().bStart_Action();
        return Eventually([] { return Progress().value() > 20; });
    }

    /// The number of samples, from the last table of sample sizes; the file may have an earlier, incomplete one.
    Int32 FrameCount() const {
        const std::string movie = LoadText(host.fileToSave);
        return qFromBigEndian<Int32>(&movie.at(movie.rfind("stsz") + 12));
    }
};

TEST_F(MakeMovieTest, TheFieldsAreJudgedAndRaisedAndTheSizeFollowsThemAsTheyStand) {
    const auto size = [] { return WidgetOf<QLabel>(Dialog().Find<StaticText>("lSize")).text(); };
    Dialog().ShowWithin(Timer(), -1);
    EXPECT_EQ(size(), "Uncompressed movie file size: 791.0MB");
    const QWidget& window = *WidgetNamed("lSize").window();
    EXPECT_FALSE(window.windowFlags() & Qt::WindowMinMaxButtonsHint);
    EXPECT_EQ(window.findChildren<QLabel*>().size(), 10);
    auto& start = WidgetNamed<QLineEdit>("eStart");
    start.clear();
    QTest::keyClicks(&start, "3-6,0a1");
    EXPECT_EQ(start.text(), "360");
    Set("3600", "30 a second", false, false);
    Field("eSizeX").Text("1920");
    Field("eSizeY").Text("1080");
    EXPECT_EQ(size(), "Uncompressed movie file size: 640,722.7MB");
    host.fileToSave.clear();
    Field("eSizeX").Text("31");
    Field("eSizeY").Text("320.9");
    Field("eFrameRate").Text("0");
    Field("eScale").Text("33.5");
    Dialog().bStart_Action();
    EXPECT_EQ(Field("eSizeX").Text() + " x " + Field("eSizeY").Text(), "32 x 320");
    EXPECT_EQ(Field("eFrameRate").Text(), "0.016666666666666");
    EXPECT_EQ(Field("eScale").Text(), "34");
}

TEST_F(MakeMovieTest, FramesAreTheClockFromTheFullTimeToTimeIsUpInOneMovieAfterTheOther) {
    Timer().Color_Clock_Wedge = RGB(0, 0, 255);
    std::string frames;
    for (const auto& [seconds, showTimeUp] :
         {std::pair{2, false}, {1, false}, {1, false}, {0, false}, {0, false}, {0, true}}) {
        const Ref<Picture> picture = NewPicture(48, 33, 32);
        Timer().Redraw(picture->Graphics(), seconds, 0.6, true, showTimeUp);
        frames += Bytes(*picture);
    }
    for (const bool isOpened : {true, false}) {
        host.calls.clear();
        Set("2", "2.5", false, isOpened);
        Field("eScale").Text("60");
        ASSERT_TRUE(RunsToItsEnd());
        EXPECT_THAT(host.calls, Contains(HasSubstr("SaveFile video/quicktime (*.moov *.mov *.qt *.mqv), ")));
        EXPECT_THAT(host.calls, Contains("Launch " + host.fileToSave.string()).Times(isOpened));
        EXPECT_EQ(FrameCount(), 6);
        EXPECT_NE(LoadText(host.fileToSave).find(frames), std::string::npos);
    }
    EXPECT_THAT(host.calls, Contains(HasSubstr(host.fileToSave.parent_path() / "Dwindledial.mov")));
    Set("-1", "10", false, false);
    ASSERT_TRUE(RunsToItsEnd());
    EXPECT_EQ(FrameCount(), 0) << "a negative time has no frame";
}

TEST_F(MakeMovieTest, ABetterQualityTakesMoreBytesAndTheEstimateIsWithinAQuarterOfThem) {
    for (const auto codec : {MovieCodec::H264, MovieCodec::Mpeg4}) {
        double before = 0;
        for (const auto& [quality, start] : {std::pair{30, "0"}, {30, "120"}, {75, "120"}}) {
            host.chosenCompression = CompressionSettings{codec, quality, 10};
            Set(start, "10", true, false);
            Field("eSizeX").Text("160");
            Field("eSizeY").Text("120");
            ASSERT_TRUE(RunsToItsEnd());
            const Ref<Picture> picture = NewPicture(160, 120, 32);
            const auto pictureAt = [&](double seconds) {
                host.plan.draw(picture->Graphics(), seconds);
                return PixelView{160, 120, picture->Bits()};
            };
            const auto estimate = MovieLibrary::Installed().EstimateBytesPerSecond(*host.chosenCompression,
                                                                                   {host.plan.seconds, pictureAt}, {});
            const auto size = static_cast<double>(std::filesystem::file_size(host.fileToSave));
            EXPECT_NEAR(estimate.value() * (host.plan.seconds + 0.1) / size, 1, *start == '0' ? 0.5 : 0.25) << start;
            EXPECT_GT(size, before);
            before = size;
        }
    }
}

TEST(CompressionDialogTest, EachCodecIsChosenAndConfirmedOnlyWhereItMakesTheSize) {
    CompressionDialog dialog(nullptr, NewPicture(9000, 65, 32), {}, {MovieCodec::H264, 30, 12});
    auto& menu = *dialog.findChild<QComboBox*>();
    EXPECT_EQ(dialog.findChildren<QLabel*>().size(), 9) << "with a text or a place for one";
    const auto& ok = *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    for (const CodecChoice& choice : MovieLibrary::Installed().Codecs()) {
        EXPECT_EQ(dialog.Settings(), (CompressionSettings{choice.codec, 30, 12})) << choice.name;
        EXPECT_EQ(dialog.findChild<QSlider*>()->isEnabled(), choice.hasQuality) << choice.name;
        EXPECT_EQ(ok.isEnabled(), choice.codec != MovieCodec::Mpeg4) << choice.name;
        const bool isRare = choice.codec == MovieCodec::H264 || choice.codec == MovieCodec::H265;
        EXPECT_EQ(menu.accessibleDescription().isEmpty(), ok.isEnabled() && !isRare) << choice.name;
        Press(menu, Qt::Key_Down, {});
    }
}

TEST_F(MakeMovieTest, CancelStopsTheJobAndThenClosesTheDialog) {
    Set("3600", "30", false, true);
    ASSERT_TRUE(IsUnderWay());
    EXPECT_FALSE(Dialog().Find<GroupBox>("GroupBox1").Enabled());
    host.calls.clear();
    Dialog().bStart_Action();  // one press too many
    Dialog().bCancel_Action();
    ASSERT_TRUE(IsOpen());
    ASSERT_TRUE(Eventually(IsIdle));
    EXPECT_TRUE(host.calls.empty()) << "no second job, and the movie isn't opened";
    EXPECT_GT(FrameCount(), 20);
    Dialog().bCancel_Action();
    EXPECT_FALSE(IsOpen());
}

TEST_F(MakeMovieTest, WhatFailsBeforeTheJobLeavesNothingBehind) {
    const auto exists = [this](const char* width) {
        Set("4", "1", true, true);
        Field("eSizeX").Text(width);
        Dialog().bStart_Action();
        EXPECT_TRUE(IsIdle());
        return std::filesystem::exists(host.fileToSave);
    };
    EXPECT_FALSE(exists("70000")) << "more than a track can have";
    host.isCompressionConfirmed = false;
    EXPECT_FALSE(exists("48"));
    host.fileToSave = host.preferencesFolder / "no such folder/clock.mov";
    EXPECT_FALSE(exists("48"));
    host.fileToSave = host.preferencesFolder / "folder";
    std::filesystem::create_directory(host.fileToSave);
    EXPECT_TRUE(exists("48")) << "a folder is left alone";
    EXPECT_THAT(host.calls, Not(Contains(HasSubstr("no such folder")))) << "it is no place to begin the next time";
}

TEST_F(MakeMovieTest, TheEndOfTheProgramEndsTheJobAndKeepsTheMovie) {
    Set("3600", "30", false, false);
    ASSERT_TRUE(IsUnderWay());
    Quit(0);
    open_windows::DestroyAll();
    EXPECT_GT(FrameCount(), 20);
    EXPECT_LT(FrameCount(), 3600 * 30);
}

}  // namespace
