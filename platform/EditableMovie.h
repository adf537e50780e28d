#pragma once

#include <functional>

#include "platform/Ref.h"
#include "platform/Values.h"

class Graphics;
class MovieWriter;
class Picture;

/// The lowest frame rate that can be chosen, in frames per second: a frame a minute.
constexpr double kLowestFrameRate = 0.016666666666666;

/// What a movie is going to show. The user is told how much space it will take.
struct MoviePlan {
    double seconds = 0;
    /// Draws the picture that is shown so many seconds from the beginning, on a surface of the movie's size.
    /// Called on another thread while the user chooses.
    std::function<void(const Ref<Graphics>&, double seconds)> draw;
};

/// The video track of a movie that is being written. Any thread, but one at a time.
class QTVideoTrack {
  public:
    explicit QTVideoTrack(std::shared_ptr<MovieWriter> writer) : writer_(std::move(writer)) {}

    /// Frames per second.
    double FrameRate() const;

    /// Adds a frame, which lasts 1 / FrameRate seconds. Waits while too many frames are still to be written.
    /// The picture may be drawn on again as soon as the call returns. It is left out if it isn't of the
    /// track's size, or if an earlier frame couldn't be written.
    void AppendPicture(const Ref<Picture>& picture);

    /// Lets the user choose how frames are encoded, and their rate, with `testImage` as the preview; waits. On
    /// the main thread, before the first picture. False, with nothing changed, when the user cancels. A choice
    /// is proposed the next time; a track without one is uncompressed. Without a plan, no size is shown.
    bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan = {});

  private:
    std::shared_ptr<MovieWriter> writer_;
};

/// A movie that is being written. Whoever drops the last reference to the movie or its track waits until all
/// frames are written and the file is closed. No failure is reported to the caller.
class EditableMovie {
  public:
    explicit EditableMovie(std::shared_ptr<MovieWriter> writer) : writer_(std::move(writer)) {}

    /// Whether closing makes a movie of what was appended. Otherwise, as at first, the file stays incomplete.
    void SaveOnClose(bool value);

    /// Adds the track; sides are in pixels, the rate in frames per second. Nil when a QuickTime file can't
    /// have such a track (its sides have 1 to 65,535 pixels), or when the movie has its track already.
    Ref<QTVideoTrack> NewVideoTrack(Int32 width, Int32 height, double frameRate);

  private:
    std::shared_ptr<MovieWriter> writer_;
};

namespace System::Quicktime {
/// Whether movies can be written on this machine. Any thread.
bool Installed();
}  // namespace System::Quicktime
