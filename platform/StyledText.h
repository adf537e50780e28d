#pragma once

#include <string>
#include <vector>

#include "platform/Numbers.h"

struct TextStyle {
    bool isBold = false;
    bool isItalic = false;
    /// In pixels; 0 is the font's own default.
    Int32 size = 0;

    bool operator==(const TextStyle&) const = default;
};

/// A stretch of text in one style.
struct StyleRun {
    std::string text;
    TextStyle style;

    bool operator==(const StyleRun&) const = default;
};

/// A text from its beginning to its end.
using StyledText = std::vector<StyleRun>;
