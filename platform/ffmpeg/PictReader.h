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

/// A file whose header tells of more than this is taken for a damaged one.
constexpr std::int64_t kMostPixelsInFile = std::int64_t{4096} * 4096;

/// The image in a PICT file; nothing when the file can't be read or is none.
std::optional<RgbImage> ReadPict(const std::filesystem::path& file);
