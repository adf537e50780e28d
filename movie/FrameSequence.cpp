#include "movie/FrameSequence.h"

#include <algorithm>
#include <cmath>

#include "core/winMain.h"

FrameSequence::FrameSequence(Int32 startTime, double frameRate)
    : frameRate_(frameRate), count_(ToInt32(std::ceil(startTime * frameRate))) {}

// The quotient is cut as it falls: one just under a whole number shows a second less. A start between two frames begins
// above the full time, so the clock is held at full.
Int32 FrameSequence::Seconds(Int32 i) const {
    return ToInt32(std::min<double>(winMain::kSecondsPerTurn, i / frameRate_));
}
