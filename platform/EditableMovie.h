#pragma once

#include <functional>

#include "platform/Ref.h"
#include "platform/Values.h"

class Graphics;
class MovieWriter;
class Picture;

/// The lowest frame rate that the user can choose, in frames per second: one frame per minute.
constexpr double kLowestFrameRate = 0.016666666666666;

/// The content of a planned movie, from which the compression dialog estimates the size of the file.
struct MoviePlan {
    double seconds = 0;  ///< the duration
    /// Draws the movie's picture at a time, in seconds, on a surface of the movie's size. Called on a worker
    /// thread while the dialog is open. If this is empty, no size is estimated.
    std::function<void(const Ref<Graphics>&, double seconds)> draw;
};

/// The video track of a movie that is being written. May be used on any thread, by one thread at a time.
class QTVideoTrack {
  public:
    explicit QTVideoTrack(std::shared_ptr<MovieWriter> writer) : writer_(std::move(writer)) {}

    /// Returns the frame rate in frames per second.
    double FrameRate() const;

    /// Adds a copy of a picture as a frame of 1 / FrameRate seconds; waits while the queue of frames is full.
    /// Does nothing if the picture's size isn't the track's or an earlier frame couldn't be written.
    void AppendPicture(const Ref<Picture>& picture);

    /// Shows a modal dialog for codec, quality and frame rate, with `testImage` as the preview. Returns
    /// false, with nothing changed, if the user cancels. The next dialog proposes the same codec and quality.
    /// Without a choice the track is uncompressed. Call this on the main thread, before the first picture.
    bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan = {});

  private:
    std::shared_ptr<MovieWriter> writer_;
};

/// A movie that is being written. Releasing the last reference to it and its track closes the file, and waits
/// until all frames are written. Failures to write aren't reported to the caller.
class EditableMovie {
  public:
    explicit EditableMovie(std::shared_ptr<MovieWriter> writer) : writer_(std::move(writer)) {}

    /// Sets whether closing the file completes it to a playable movie. By default the file stays incomplete.
    void SaveOnClose(bool value);

    /// Adds the track, with its sides in pixels and its rate in frames per second. Returns nil if the movie
    /// has a track already or QuickTime can't store this one (a side must have 1 to 65,535 pixels).
    Ref<QTVideoTrack> NewVideoTrack(Int32 width, Int32 height, double frameRate);

  private:
    std::shared_ptr<MovieWriter> writer_;
};

namespace System::Quicktime {
/// Returns whether movies can be written on this machine. May be called on any thread.
bool Installed();
}  // namespace System::Quicktime
