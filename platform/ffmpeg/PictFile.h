#pragma once

#include "platform/MovieLibrary.h"

/// Decodes a PICT file. Throws if it can't be read or isn't a PICT file.
RgbImage ReadPictFile(const std::filesystem::path& file);
