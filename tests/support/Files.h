#pragma once

#include "platform/FolderItem.h"
#include "platform/Picture.h"

inline void SaveText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

inline std::string LoadText(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The pixels as an uncompressed movie has them, three bytes each.
inline std::string Bytes(const Picture& picture) {
    std::string bytes;
    for (const std::uint32_t pixel : picture.Bits())
        bytes += {static_cast<char>(pixel >> 16), static_cast<char>(pixel >> 8), static_cast<char>(pixel)};
    return bytes;
}
