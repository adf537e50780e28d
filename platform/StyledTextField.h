#pragma once

#include <string>
#include <vector>

#include "platform/Color.h"
#include "platform/Control.h"
#include "platform/Values.h"

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

/// A field of wrapped text that the user can scroll, select and copy, but not change. Only where a screen reader is, it
/// has a caret; else the keys that would move one scroll. Lines are separated by carriage returns.
class StyledTextField : public RectControl {
  public:
    StyledTextField();

    std::string Text() const;
    /// Shows a text in the style of the field, that is, in its size and neither bold nor italic.
    void Text(const std::string& text);
    /// Shows a text with its first line on top and nothing selected.
    void StyledText(const ::StyledText& text);

    Int32 TextSize() const;
    void TextSize(Int32 size);
    /// "System", or a family of the desktop.
    void TextFont(const std::string& name);
    /// The desktop's own, unless they are set.
    void TextColor(Color color);
    void BackColor(Color color);
};
