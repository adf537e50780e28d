#pragma once

#include <algorithm>
#include <cmath>

#include "core/winMain.h"
#include "platform/Values.h"

/// The frames of a movie of a count-down. They are numbered backwards from Count() to 0, so there are
/// Count() + 1 frames. Frame 0 shows that time is up.
class FrameSequence {
  public:
    /// `startTime` is in seconds, `frameRate` in frames per second.
    FrameSequence(Int32 startTime, double frameRate)
        : frameRate_(frameRate), count_(ToInt32(std::ceil(startTime * frameRate))) {}

    /// Returns the number of the first frame. If it is negative, as for a negative time, there are no frames.
    Int32 Count() const { return count_; }

    /// Returns the remaining time that frame i shows, in truncated seconds (29.999 gives 29). The first frame
    /// may show more than the start time, but never more than a full turn.
    Int32 Seconds(Int32 i) const { return ToInt32(std::min<double>(winMain::kSecondsPerTurn, i / frameRate_)); }

  private:
    double frameRate_;
    Int32 count_;
};
