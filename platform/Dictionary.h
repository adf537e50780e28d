#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "platform/Variant.h"

/// A hash map of Variants that keeps the order in which its keys were first stored.
class Dictionary {
  public:
    bool HasKey(const Variant& key) const;

    /// The value stored under `key`. Throws std::out_of_range if there is none.
    const Variant& Value(const Variant& key) const;
    /// Stores or replaces the value under `key`.
    void Value(const Variant& key, Variant value);

    /// Keys and values in the same order: the value of Keys()[i] is Values()[i].
    const std::vector<Variant>& Keys() const { return keys_; }
    const std::vector<Variant>& Values() const { return values_; }

  private:
    struct Hasher {
        std::size_t operator()(const Variant& key) const { return key.Hash(); }
    };

    std::vector<Variant> keys_;
    std::vector<Variant> values_;
    std::unordered_map<Variant, std::size_t, Hasher> index_;
};
