#include <algorithm>

#include "core/winMain.h"
#include "movie/FileTypes.h"
#include "movie/FrameSequence.h"
#include "movie/winMakeMovie.h"
#include "platform/Controls.h"
#include "platform/Picture.h"
#include "platform/Text.h"
#include "platform/Thread.h"
#include "platform/Timer.h"

// Ignores a second press of Start that comes before the worker has disabled the button.
void winMakeMovie::bStart_Action() {
    if (Find<Thread>("thr").State() == Thread::States::Running) return;
    ReadSettings();
    UpdateNow();
    if (!CreateMovieFile()) return;
    if (Compress && !ChooseCompression()) return;
    Find<Thread>("thr").Run();
}

// The bounds differ from those in the labels. Values below a bound are raised to it and shown in the field.
void winMakeMovie::ReadSettings() {
    constexpr double kSmallestSide = 32;
    SizeX = ToInt32(std::max(Number("eSizeX"), kSmallestSide));
    SizeY = ToInt32(std::max(Number("eSizeY"), kSmallestSide));
    FrameRate = std::max(Number("eFrameRate"), kLowestFrameRate);
    StartTime = ToInt32(Number("eStart"));
    Compress = Find<CheckBox>("CheckBox1").Value();
    OpenMovie = Find<CheckBox>("CheckBox2").Value();
    Scale = std::max(Number("eScale"), 1.0) / 100;

    Find<EditField>("eSizeX").Text(Str(SizeX));
    Find<EditField>("eSizeY").Text(Str(SizeY));
    Find<EditField>("eFrameRate").Text(Str(FrameRate));
    Find<EditField>("eScale").Text(Format(Scale * 100, "0"));
}

bool winMakeMovie::CreateMovieFile() {
    f = GetSaveFolderItem(FileTypes::Quicktime()->ToString(), "Dwindledial.mov");
    if (!f) return false;
    m = f->CreateMovie();
    if (!m) return false;
    m->SaveOnClose(true);
    t = m->NewVideoTrack(SizeX, SizeY, FrameRate);
    if (!t) DiscardMovie();
    return static_cast<bool>(t);
}

bool winMakeMovie::ChooseCompression() {
    const Ref<Picture> testImage = NewPicture(SizeX, SizeY, 32);
    winMain& timer = winMain::Instance();
    timer.Redraw(testImage->Graphics(), StartTime, Scale, true, false);
    const auto draw = [this, &timer](const Ref<Graphics>& graphics, double seconds) {
        timer.Redraw(graphics, ToInt32(std::max(StartTime - seconds, 0.0)), Scale, true, false);
    };
    if (!t->SelectCompressionSettings(testImage, {static_cast<double>(StartTime), draw})) {
        DiscardMovie();
        return false;
    }
    FrameRate = t->FrameRate();
    return true;
}

void winMakeMovie::DiscardMovie() {
    m = nullptr;
    t = nullptr;
    f->Delete();
    f = nullptr;
}

void winMakeMovie::bCancel_Action() {
    if (Find<Thread>("thr").State() == Thread::States::Running) {
        Cancel = true;
    } else {
        Close();
    }
}

// A job still in progress has lost its worker, because the program is quitting. Releasing the movie saves it.
void winMakeMovie::Event_Close() {
    m = nullptr;
    t = nullptr;
}

void winMakeMovie::thr_Run() {
    auto& progress = Find<ProgressBar>("ProgressBar1");
    Cancel = false;
    Find<GroupBox>("GroupBox1").Enabled(false);
    Find<PushButton>("bStart").Enabled(false);
    progress.Maximum(0);
    progress.Visible(true);
    progress.Refresh(true);

    RenderFrames();

    progress.Maximum(0);
    progress.Refresh(true);
    m = nullptr;
    t = nullptr;
    if (OpenMovie && !Cancel) f->Launch(true);
    f = nullptr;
    Find<Timer>("Timer1").Mode(Timer::Modes::Single);
}

void winMakeMovie::RenderFrames() {
    const Ref<Picture> picture = NewPicture(SizeX, SizeY, 32);
    const Ref<Graphics> graphics = picture->Graphics();
    auto& progress = Find<ProgressBar>("ProgressBar1");
    const FrameSequence frames(StartTime, FrameRate);
    progress.Maximum(frames.Count());
    for (Int32 i = frames.Count(); i >= 0 && !Cancel; --i) {
        progress.Value(frames.Count() - i);
        progress.Refresh(true);
        winMain::Instance().Redraw(graphics, frames.Seconds(i), Scale, true, i == 0);
        t->AppendPicture(picture);
        Thread::Yield();
    }
}

void winMakeMovie::Timer1_Action() {
    Find<GroupBox>("GroupBox1").Enabled(true);
    Find<PushButton>("bStart").Enabled(true);
    Find<ProgressBar>("ProgressBar1").Visible(false);
    Find<ProgressBar>("ProgressBar1").Refresh(true);
    UpdateNow();
}
