#include "platform/Menu.h"

Ref<MenuItem> MenuItem::Child(const std::string& name) const {
    for (const Ref<MenuItem>& child : children_) {
        if (child->Name() == name) return child;
        if (Ref<MenuItem> deeper = child->Child(name)) return deeper;
    }
    return nullptr;
}
