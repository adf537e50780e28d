#pragma once

#include <algorithm>
#include <cmath>

#include "core/winMain.h"
#include "platform/Values.h"

/// The frames of the movie of a count-down. They are numbered backwards: frame Count() comes first; frame 0 comes last,
/// and says that time is up. So there is one more than Count() says. Pure arithmetic.
class FrameSequence {
  public:
    /// `startTime` in seconds, `frameRate` in frames per second.
    FrameSequence(Int32 startTime, double frameRate)
        : frameRate_(frameRate), count_(ToInt32(std::ceil(startTime * frameRate))) {}

    /// Negative, and then there is no frame at all, for a negative time.
    Int32 Count() const { return count_; }

    /// The remaining time that frame i shows, in seconds. The quotient is cut as it falls: one just under a whole
    /// number shows a second less. A start between two frames begins above the full time, so the clock is held at full.
    Int32 Seconds(Int32 i) const { return ToInt32(std::min<double>(winMain::kSecondsPerTurn, i / frameRate_)); }

  private:
    double frameRate_;
    Int32 count_;
};
