#pragma once

#include <exception>

/// What `work` gives, or nothing when it throws: for want of memory or of threads, since nothing else does here.
template <class Work>
auto OrNothing(const Work& work) noexcept -> decltype(work()) {
    try {
        return work();
    } catch (const std::exception&) {
        return {};
    }
}
