#pragma once

#include <algorithm>
#include <cmath>

#include "core/winMain.h"
#include "platform/Values.h"

/// The frames of the movie of a count-down. They are numbered backwards, from Count() down to 0, the frame
/// that says that time is up; so there is one more than Count(). Pure arithmetic.
class FrameSequence {
  public:
    /// `startTime` in seconds, `frameRate` in frames per second.
    FrameSequence(Int32 startTime, double frameRate)
        : frameRate_(frameRate), count_(ToInt32(std::ceil(startTime * frameRate))) {}

    /// Negative for a negative time; then there is no frame at all.
    Int32 Count() const { return count_; }

    /// The remaining time that frame i shows, in seconds. The quotient is truncated, so 29.999... shows 29.
    /// The first frame may show more than the start time, but never more than a full turn.
    Int32 Seconds(Int32 i) const { return ToInt32(std::min<double>(winMain::kSecondsPerTurn, i / frameRate_)); }

  private:
    double frameRate_;
    Int32 count_;
};
