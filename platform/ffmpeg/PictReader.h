#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

/// An image of `width` times `height` pixels, three bytes each (red, green, blue), row by row without padding.
struct RgbImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;
};

/// The image in a PICT file; nothing when the file can't be read, is none, or is larger than 16 million pixels.
std::optional<RgbImage> ReadPict(const std::filesystem::path& file);
