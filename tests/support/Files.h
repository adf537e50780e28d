#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

inline void SaveText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

inline std::string LoadText(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
