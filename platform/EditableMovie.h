#pragma once

#include <functional>
#include <memory>

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

    /// Adds a frame, which lasts 1 / FrameRate seconds, to the end of the track. A picture that isn't of the
    /// track's size is left out. The picture may be drawn on again as soon as the call returns. Waits while
    /// too many frames are still to be written. Once a frame could not be written, all that follow are
    /// dropped.
    void AppendPicture(const Ref<Picture>& picture);

    /// Lets the user choose how the frames are encoded, with `testImage` as the preview, and waits. Before
    /// the first picture, on the main thread. Stores the choice in the track, with its frame rate, and
    /// proposes it the next time. False, with nothing changed, when the user cancels. A track for which
    /// nothing was chosen is uncompressed. Without a plan the user isn't told the movie's size.
    bool SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan = {});

  private:
    std::shared_ptr<MovieWriter> writer_;
};

/// A movie that is being written. The file is closed when the last reference to the movie or its track is
/// dropped, on the thread that drops it, which waits until all frames are written. The caller isn't told of a
/// failure.
class EditableMovie {
  public:
    explicit EditableMovie(std::shared_ptr<MovieWriter> writer) : writer_(std::move(writer)) {}

    /// Whether closing makes a movie of what was appended. Otherwise the file is left incomplete. Initially
    /// False.
    void SaveOnClose(bool value);

    /// Adds a track of `width` times `height` pixels and `frameRate` frames per second. Nil when a QuickTime
    /// file can't have such a track (its sides have 1 to 65,535 pixels), or when the movie has its track
    /// already.
    Ref<QTVideoTrack> NewVideoTrack(Int32 width, Int32 height, double frameRate);

  private:
    std::shared_ptr<MovieWriter> writer_;
};

namespace System::Quicktime {

/// Whether movies can be written on this machine. Any thread.
bool Installed();

}  // namespace System::Quicktime
