#include "platform/Variant.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace {

constexpr std::size_t kColorDigits = 6;

std::string ColorText(Color color) {
    std::array<char, kColorDigits + 2> text;
    std::snprintf(text.data(), text.size(), "#%06X", static_cast<unsigned>(color.value) & 0xFFFFFF);
    return text.data();
}

}  // namespace

Variant::Variant(std::string text) : whole_(std::make_shared<std::string>(std::move(text))), part_(*whole_) {}

Variant::Variant(Color color) : Variant(ColorText(color)) {}

Variant::Variant(std::shared_ptr<const std::string> whole, std::string_view part)
    : whole_(std::move(whole)), part_(part) {}

Color Variant::ColorValue() const {
    const std::string_view digits = part_.starts_with('#') ? part_.substr(1) : part_;
    if (digits.size() != kColorDigits) return Color{};

    // The type is unsigned, because for a signed one from_chars would accept a minus sign.
    unsigned value = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, value, 16);
    return read.ptr == end ? Color{static_cast<Int32>(value)} : Color{};
}

void Dictionary::Value(const Variant& key, const Variant& value) {
    const auto [place, isNew] = index_.try_emplace(key.StringValue(), keys_.size());
    if (isNew) {
        keys_.push_back(key);
        values_.push_back(value);
    } else {
        values_[place->second] = value;
    }
}
