#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Color.h"

/// A value that is a String or a Color and converts to either. Copies share its text.
class Variant {
  public:
    explicit(false) Variant(std::string text);
    explicit(false) Variant(const char* text) : Variant(std::string(text)) {}
    explicit(false) Variant(Color color);
    /// The String `part`, a view into `*whole`, without copying it.
    Variant(std::shared_ptr<const std::string> whole, std::string_view part);

    /// The text itself, or a colour as "#" and six hexadecimal digits.
    std::string StringValue() const { return std::string(part_); }

    /// The colour itself, or that of six hexadecimal digits with or without "#". Any other text is black.
    Color ColorValue() const;

  private:
    std::shared_ptr<const std::string> whole_;
    std::string_view part_;
};

/// A hash map of Variants that keeps the order in which its keys were stored. Keys are compared as texts.
class Dictionary {
  public:
    bool HasKey(const Variant& key) const { return index_.contains(key.StringValue()); }

    /// The value stored under `key`. Throws std::out_of_range if there is none.
    const Variant& Value(const Variant& key) const { return values_[index_.at(key.StringValue())]; }
    /// Stores or replaces the value under `key`.
    void Value(const Variant& key, const Variant& value);

    /// All keys, and all values in the same order: Values()[i] belongs to Keys()[i].
    const std::vector<Variant>& Keys() const { return keys_; }
    const std::vector<Variant>& Values() const { return values_; }

  private:
    std::vector<Variant> keys_;
    std::vector<Variant> values_;
    std::unordered_map<std::string, std::size_t> index_;  ///< where a key's text stands in keys_ and values_
};
