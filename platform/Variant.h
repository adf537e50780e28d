#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Color.h"

/// A value that is a text or a colour and converts to either. Copies share the text.
class Variant {
  public:
    explicit(false) Variant(std::string text);
    explicit(false) Variant(const char* text) : Variant(std::string(text)) {}
    explicit(false) Variant(Color color);
    /// Creates a text from `part`, a view into `*whole`. Shares ownership of `whole`; copies nothing.
    Variant(std::shared_ptr<const std::string> whole, std::string_view part);

    /// Returns the text; a colour is converted to "#" and six hexadecimal digits.
    std::string StringValue() const { return std::string(part_); }

    /// Returns the colour. A text is parsed as six hexadecimal digits, with or without "#", or else is black.
    Color ColorValue() const;

  private:
    std::shared_ptr<const std::string> whole_;
    std::string_view part_;
};

/// A hash map of Variants that keeps the order in which its keys were added. Keys are compared as texts.
class Dictionary {
  public:
    bool HasKey(const Variant& key) const { return index_.contains(key.StringValue()); }

    /// Returns the value stored under `key`. Throws std::out_of_range if there is none.
    const Variant& Value(const Variant& key) const { return values_[index_.at(key.StringValue())]; }
    /// Stores or replaces the value under `key`.
    void Value(const Variant& key, const Variant& value);

    // Return all keys, and all values in the same order: Values()[i] belongs to Keys()[i].
    const std::vector<Variant>& Keys() const { return keys_; }
    const std::vector<Variant>& Values() const { return values_; }

  private:
    std::vector<Variant> keys_;
    std::vector<Variant> values_;
    std::unordered_map<std::string, std::size_t> index_;  ///< maps a key's text to its index in both vectors
};
