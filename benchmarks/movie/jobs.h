#pragma once

#include <filesystem>

#include "platform/MovieLibrary.h"
#include "platform/Values.h"

class RecordingHost;

/// A movie of a count-down.
struct MovieJob {
    CompressionSettings settings;
    Int32 width;
    Int32 height;
    /// Where the count begins, in seconds.
    Int32 startTime;
    std::filesystem::path file;
};

// Each makes the movie and gives the seconds that it took.

/// As the Create Movie dialog does it, from the press of Start to the end of the worker.
double RunDialog(const MovieJob& job, RecordingHost& host);

/// The same pictures but for two pixels, the first and the last, that change from frame to frame: so the movie layer
/// finds nothing of the picture before that it could use again.
double RunDistinct(const MovieJob& job, RecordingHost& host);

/// What an encoder is given while the time is taken: pictures that are drawn, or frames that are converted, too.
enum class EncoderInput { Pictures, Frames };

/// Encoder and file alone, on one thread. Each frame is encoded.
double RunEncoder(const MovieJob& job, EncoderInput input);
