#pragma once

#include <filesystem>

#include "platform/MovieLibrary.h"
#include "platform/Values.h"

class RecordingHost;

/// The parameters of a movie of a count-down.
struct MovieJob {
    CompressionSettings settings;
    Int32 width;
    Int32 height;
    /// The time at which the count-down starts, in seconds.
    Int32 startTime;
    std::filesystem::path file;
};

// The Run functions make the movie and return the elapsed time in seconds.

/// Uses the Create Movie dialog. Measures from the press of Start to the end of the worker.
double RunDialog(const MovieJob& job, RecordingHost& host);

/// Draws the same pictures as the dialog, but alters the first and the last pixel in every frame, so that the
/// movie layer can't reuse any part of the previous picture.
double RunDistinct(const MovieJob& job, RecordingHost& host);

/// The input of the measured encoding: pictures, which are converted first, or frames already converted.
enum class EncoderInput { Pictures, Frames };

/// Uses only the encoder and the file, on one thread. Encodes even a frame equal to the previous frame.
double RunEncoder(const MovieJob& job, EncoderInput input);
