#pragma once

extern "C" {
#include <libavutil/rational.h>
}

/// Frames per second as a fraction: exact for every rate that a user writes with up to five digits, also for the
/// decimal forms of 1/60 and the like. No term is above `limit`, unless the rate is. 0/x or x/0 when there is no such
/// fraction.
AVRational ExactRate(double framesPerSecond, int limit = 1001000);

inline bool IsUsable(AVRational rate) { return rate.num > 0 && rate.den > 0; }

/// Ticks per second of a track in which each frame of a usable rate lasts a whole number of them.
int TrackTimescale(AVRational rate);
