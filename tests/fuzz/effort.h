#pragma once

#include <chrono>
#include <cstdlib>
#include <string>

// How much is tried at random, and what: whoever runs the tests can choose.

inline unsigned FromEnvironment(const char* variable, unsigned otherwise) {
    const char* const value = std::getenv(variable);
    return value ? static_cast<unsigned>(std::stoul(value)) : otherwise;
}

/// The same seed gives the same inputs and actions.
inline unsigned FuzzSeed() { return FromEnvironment("FUZZ_SEED", 1); }
inline std::chrono::seconds FuzzDuration() { return std::chrono::seconds(FromEnvironment("FUZZ_SECONDS", 3)); }
