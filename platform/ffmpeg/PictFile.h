#pragma once

#include "platform/MovieLibrary.h"

/// The image in a PICT file. Throws when the file can't be read or isn't one.
RgbImage ReadPictFile(const std::filesystem::path& file);
