#pragma once

#include <vector>

#include "platform/Color.h"
#include "platform/Control.h"

// A text that doesn't fit its control is set narrower, and smaller if need be.

enum class TextAlignment { Left = 1, Centre = 2, Right = 3 };

/// A label. Carriage returns separate its lines.
class StaticText : public RectControl {
  public:
    StaticText();

    void Text(const std::string& text);
    /// "System" or "SmallSystem", or a family of the desktop.
    void TextFont(const std::string& name);
    /// In pixels; 0 is the font's own default.
    void TextSize(Int32 size);
    void Bold(bool on);
    void TextAlign(TextAlignment alignment);
    /// Makes this the name that screen readers use for `control`, which is already in the same window.
    void LabelFor(const RectControl& control);
};

class PushButton : public RectControl {
  public:
    PushButton();

    std::function<void()> Action;

    void Caption(const std::string& caption);

    /// Whether Return and Enter press this button, wherever the focus is, unless it is on another button.
    bool Default() const;
    void Default(bool on);
    /// Whether Escape presses this button.
    Property<bool> Cancel = false;
};

/// A text field of one line.
class EditField : public RectControl {
  public:
    EditField();

    /// A key as one character, also from an on-screen keyboard, before the field sees it. True consumes it.
    /// Not called for commands (keys held with Ctrl, Alt or Meta) nor for pasted text.
    std::function<bool(const std::string& key)> KeyDown;
    std::function<void()> LostFocus;
    /// The text has changed, whoever changed it.
    std::function<void()> TextChange;

    std::string Text() const;
    /// Puts the caret at the end, but shows the beginning of a text that is longer than the field.
    void Text(const std::string& text);
    /// Replaces the selection; with nothing selected, inserts at the caret.
    void SelText(const std::string& text);
    void Alignment(TextAlignment alignment);
    /// Colours of the enabled field. They are the desktop's until set, and while the field is disabled.
    void TextColor(Color color);
    void BackColor(Color color);
};

/// A pair of small arrows. Each event comes at the press and is repeated while the button is held.
class UpDownArrows : public RectControl {
  public:
    UpDownArrows();

    std::function<void()> Up;
    std::function<void()> Down;

    /// The name of the pair, to which each arrow adds its direction.
    void AccessibleName(const std::string& name) override;
};

class CheckBox : public RectControl {
  public:
    CheckBox();

    void Caption(const std::string& caption);
    bool Value() const;
    void Value(bool on);
};

/// A titled frame around controls.
class GroupBox : public RectControl {
  public:
    GroupBox();

    void Caption(const std::string& caption);
};

/// A bar that shows the progress of a job. Its properties may be set on any thread.
class ProgressBar : public RectControl {
  public:
    ProgressBar();

    /// 0 makes the bar indeterminate.
    void Maximum(Int32 maximum);
    void Value(Int32 value);
};

struct TextStyle {
    bool isBold = false;
    bool isItalic = false;
    Int32 size = 0;  ///< in pixels; 0 is the font's own default

    bool operator==(const TextStyle&) const = default;
};

struct StyleRun {
    std::string text;
    TextStyle style;

    bool operator==(const StyleRun&) const = default;
};

using StyledText = std::vector<StyleRun>;

/// A field of wrapped text that the user can scroll, select and copy, but not change. Carriage returns
/// separate its lines. It has a caret only while a screen reader is active; otherwise the arrow keys scroll.
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
    /// See EditField.
    void TextColor(Color color);
    void BackColor(Color color);
};
