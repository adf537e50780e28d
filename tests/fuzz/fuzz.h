#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/Files.h"

/// What each target defines: one run on one input. What must hold on every input is said by Require.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the program when something doesn't hold that must.
inline void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

/// Puts a text in place of a file. Some file systems wait for the disk when one is written over, but not for a new one.
inline void SaveAnew(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::remove(file);
    SaveText(file, text);
}
