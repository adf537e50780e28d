#include "platform/Variant.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

namespace {

constexpr std::size_t kColorDigits = 6;

Color ParseColor(std::string_view text) {
    if (text.starts_with('#')) text.remove_prefix(1);
    if (text.size() != kColorDigits) return Color{};

    // Unsigned, since that takes no sign.
    unsigned value = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value, 16);
    return read.ptr == end ? Color{static_cast<Int32>(value)} : Color{};
}

std::string ColorText(Color color) {
    std::array<char, kColorDigits + 2> text;
    std::snprintf(text.data(), text.size(), "#%06X", static_cast<unsigned>(color.value) & 0xFFFFFF);
    return text.data();
}

}  // namespace

Variant::Variant(std::string text) {
    auto whole = std::make_shared<const std::string>(std::move(text));
    const std::string_view part = *whole;
    value_ = SharedText{std::move(whole), part};
}

Variant::Variant(std::shared_ptr<const std::string> whole, std::string_view part)
    : value_(SharedText{std::move(whole), part}) {}

std::string Variant::StringValue() const {
    const auto* const color = std::get_if<Color>(&value_);
    return color ? ColorText(*color) : std::string(std::get<SharedText>(value_).part);
}

Color Variant::ColorValue() const {
    const auto* const color = std::get_if<Color>(&value_);
    return color ? *color : ParseColor(std::get<SharedText>(value_).part);
}

bool Dictionary::HasKey(const Variant& key) const { return index_.contains(key.StringValue()); }

const Variant& Dictionary::Value(const Variant& key) const { return values_[index_.at(key.StringValue())]; }

void Dictionary::Value(const Variant& key, Variant value) {
    const auto [place, isNew] = index_.try_emplace(key.StringValue(), keys_.size());
    if (isNew) {
        keys_.push_back(key);
        values_.push_back(std::move(value));
    } else {
        values_[place->second] = std::move(value);
    }
}
