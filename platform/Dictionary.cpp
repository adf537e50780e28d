#include "platform/Dictionary.h"

bool Dictionary::HasKey(const Variant& key) const { return index_.contains(key); }

const Variant& Dictionary::Value(const Variant& key) const { return values_[index_.at(key)]; }

void Dictionary::Value(const Variant& key, Variant value) {
    const auto [place, isNew] = index_.try_emplace(key, keys_.size());
    if (isNew) {
        keys_.push_back(key);
        values_.push_back(std::move(value));
    } else {
        values_[place->second] = std::move(value);
    }
}
