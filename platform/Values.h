#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

using Int32 = std::int32_t;
using Int64 = std::int64_t;

/// Truncates a number towards zero to an integer of type I, clamped to I's range; NaN becomes 0. A plain cast
/// of NaN or of a number outside the range would be undefined behaviour.
template <class I>
I Truncate(double value) {
    constexpr double lowest = static_cast<double>(std::numeric_limits<I>::min());
    if (std::isnan(value)) return 0;
    if (value <= lowest) return std::numeric_limits<I>::min();
    if (value >= -lowest) return std::numeric_limits<I>::max();
    return static_cast<I>(value);
}

inline Int32 ToInt32(double value) { return Truncate<Int32>(value); }
inline Int64 ToInt64(double value) { return Truncate<Int64>(value); }

/// A plain property: a value that is read by `object.P()` and set by `object.P(value)`.
template <class T>
class Property {
  public:
    Property() = default;
    explicit(false) Property(T initial) : value_(std::move(initial)) {}

    const T& operator()() const { return value_; }
    void operator()(T value) { value_ = std::move(value); }

  private:
    T value_{};
};
