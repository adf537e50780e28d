#include "benchmarks/movie/jobs.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <chrono>
#include <functional>
#include <string>

#include "core/winMain.h"
#include "movie/FrameSequence.h"
#include "movie/winMakeMovie.h"
#include "platform/Controls.h"
#include "platform/EditableMovie.h"
#include "platform/FolderItem.h"
#include "platform/Graphics.h"
#include "platform/Picture.h"
#include "platform/Text.h"
#include "platform/Thread.h"
#include "tests/support/RecordingHost.h"

namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

void ExpectFile(const MovieJob& job, RecordingHost& host) {
    host.fileToSave = job.file;
    host.chosenCompression = job.settings;
}

/// Runs an event loop, as the program does, while `holds` returns true.
void RunEventLoopWhile(const std::function<bool()>& holds) {
    constexpr std::chrono::milliseconds kPeriod(5);
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (!holds()) loop.quit();
    });
    timer.start(kPeriod);
    loop.exec();
}

bool ChoosesCompression(const MovieJob& job) { return job.settings.codec != MovieCodec::Uncompressed; }

Color CornerColour(Int32 frame) { return frame % 2 == 0 ? RGB(0, 0, 0) : RGB(255, 255, 255); }

}  // namespace

double RunDialog(const MovieJob& job, RecordingHost& host) {
    ExpectFile(job, host);
    auto& dialog = winMakeMovie::Instance();
    dialog.Find<EditField>("eStart").Text(Str(job.startTime));
    dialog.Find<EditField>("eSizeX").Text(Str(job.width));
    dialog.Find<EditField>("eSizeY").Text(Str(job.height));
    dialog.Find<EditField>("eFrameRate").Text(Str(job.settings.frameRate));
    dialog.Find<CheckBox>("CheckBox1").Value(ChoosesCompression(job));

    const auto start = Clock::now();
    dialog.bStart_Action();
    RunEventLoopWhile([&] { return dialog.Find<Thread>("thr").State() == Thread::States::Running; });
    return Since(start);
}

double RunDistinct(const MovieJob& job, RecordingHost& host) {
    constexpr double kScale = 0.9;
    ExpectFile(job, host);
    const auto start = Clock::now();
    Ref<EditableMovie> movie = FolderItem(job.file).CreateMovie();
    movie->SaveOnClose(true);
    Ref<QTVideoTrack> track = movie->NewVideoTrack(job.width, job.height, job.settings.frameRate);
    if (ChoosesCompression(job)) track->SelectCompressionSettings(nullptr);
    const Ref<Picture> picture = NewPicture(job.width, job.height, 32);
    const Ref<Graphics> graphics = picture->Graphics();
    const FrameSequence frames(job.startTime, job.settings.frameRate);
    for (Int32 i = frames.Count(); i >= 0; --i) {
        winMain::Instance().Redraw(graphics, frames.Seconds(i), kScale, true, i == 0);
        graphics->ForeColor(CornerColour(i));
        graphics->FillRect(0, 0, 1, 1);
        graphics->FillRect(job.width - 1, job.height - 1, 1, 1);
        track->AppendPicture(picture);
    }
    movie = nullptr;
    track = nullptr;
    return Since(start);
}
