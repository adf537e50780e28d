#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "platform/Color.h"

/// A value that is a String or a Color and converts to either. Copies of a String share its text.
class Variant {
  public:
    Variant() = default;
    explicit(false) Variant(std::string text);
    explicit(false) Variant(const char* text) : Variant(std::string(text)) {}
    explicit(false) Variant(Color color) : value_(color) {}
    /// The String `part`, which lies in `*whole`, without a copy of it.
    Variant(std::shared_ptr<const std::string> whole, std::string_view part);

    /// The text itself, or a colour as "#" and six hexadecimal digits.
    std::string StringValue() const;

    /// The colour itself, or the one that a text names: "#" and six hexadecimal digits, or the digits alone. A text
    /// that is no colour gives black.
    Color ColorValue() const;

    bool operator==(const Variant&) const = default;
    std::size_t Hash() const;

  private:
    struct SharedText {
        std::shared_ptr<const std::string> whole;
        std::string_view part;

        bool operator==(const SharedText& other) const { return part == other.part; }
    };

    std::variant<SharedText, Color> value_;
};
