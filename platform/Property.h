#pragma once

#include <utility>

/// A plain value that is read as `object.P()` and set by `object.P(value)`, like every property of the toolkit.
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
