#pragma once

#include <functional>
#include <string>

/// What a control that its owner paints tells a screen reader, which may ask at any moment on the main thread. What
/// isn't given doesn't exist for it.
struct Accessible {
    enum class Roles { Picture = 1, Button };
    Roles Role = Roles::Picture;
    /// The present state in words.
    std::function<std::string()> Description;
    /// Does what a click does.
    std::function<void()> Press;
};
