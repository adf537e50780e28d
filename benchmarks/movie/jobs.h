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

// Each makes the movie and returns the seconds that this took.

/// As the Create Movie dialog does it, from the press of Start to the end of the worker.
double RunDialog(const MovieJob& job, RecordingHost& host);

/// The same pictures, but the first and the last pixel change from frame to frame, so that the movie layer
/// can't reuse anything of the picture before.
double RunDistinct(const MovieJob& job, RecordingHost& host);

/// What is measured: the encoding of drawn pictures with their conversion, or of converted frames alone.
enum class EncoderInput { Pictures, Frames };

/// The encoder and the file alone, on one thread. Every frame is encoded, equal or not.
double RunEncoder(const MovieJob& job, EncoderInput input);
