#pragma once

#include <vector>

#include "platform/Color.h"
#include "platform/Control.h"

// Labels, buttons and text fields condense a text that doesn't fit, and reduce its size if that isn't enough.

enum class TextAlignment { Left = 1, Centre = 2, Right = 3 };

/// A label. A carriage return in the text starts a new line.
class StaticText : public RectControl {
  public:
    StaticText();

    void Text(const std::string& text);
    /// Sets the font: "System", "SmallSystem" or the name of an installed font family.
    void TextFont(const std::string& name);
    /// Sets the font's size in logical pixels; 0 is the font's default size.
    void TextSize(Int32 size);
    void Bold(bool on);
    void TextAlign(TextAlignment alignment);
    /// Makes screen readers use this text as the name of `control`, which must be in the same window already.
    void LabelFor(const RectControl& control);
};

class PushButton : public RectControl {
  public:
    PushButton();

    std::function<void()> Action;

    void Caption(const std::string& caption);

    /// Whether Return and Enter press this button, unless another button has the focus.
    bool Default() const;
    void Default(bool on);
    /// Whether Escape presses this button.
    Property<bool> Cancel = false;
};

/// A text field of one line.
class EditField : public RectControl {
  public:
    EditField();

    /// Called with a typed key as one character, also from an on-screen keyboard, before the field handles
    /// it. True consumes the key. Not called for pasted text or keys held with Ctrl, Alt or Meta.
    std::function<bool(const std::string& key)> KeyDown;
    std::function<void()> LostFocus;
    /// Called after each change of the text, by the user or by the program.
    std::function<void()> TextChange;

    std::string Text() const;
    /// Sets the text, with the caret at its end, but scrolls to the beginning of a text that is too long.
    void Text(const std::string& text);
    /// Replaces the selection by `text`; inserts `text` at the caret if nothing is selected.
    void SelText(const std::string& text);
    void Alignment(TextAlignment alignment);
    // These colours apply while the field is enabled; a disabled field has the desktop's colours.
    void TextColor(Color color);
    void BackColor(Color color);
};

/// A pair of arrow buttons. Up and Down are called at the press and repeatedly while the button is held.
class UpDownArrows : public RectControl {
  public:
    UpDownArrows();

    std::function<void()> Up;
    std::function<void()> Down;

    /// Sets the pair's name. Screen readers call the arrows by this name followed by "up" or "down".
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

/// A progress bar. Maximum and Value may be set on any thread.
class ProgressBar : public RectControl {
  public:
    ProgressBar();

    /// Sets the value at which the bar is full; 0 makes the bar indeterminate.
    void Maximum(Int32 maximum);
    void Value(Int32 value);
};

struct TextStyle {
    bool isBold = false;
    bool isItalic = false;
    Int32 size = 0;  ///< in logical pixels; 0 is the font's default size

    bool operator==(const TextStyle&) const = default;
};

struct StyleRun {
    std::string text;
    TextStyle style;

    bool operator==(const StyleRun&) const = default;
};

using StyledText = std::vector<StyleRun>;

/// A read-only field of wrapped text that can be scrolled, selected and copied. A carriage return starts a
/// new line. There is a caret only while a screen reader is active; otherwise the arrow keys scroll.
class StyledTextField : public RectControl {
  public:
    StyledTextField();

    std::string Text() const;
    /// Shows a text in the field's size, neither bold nor italic.
    void Text(const std::string& text);
    /// Shows a text, scrolled to its beginning, with nothing selected.
    void StyledText(const ::StyledText& text);

    Int32 TextSize() const;
    void TextSize(Int32 size);
    /// Sets the font: "System" or the name of an installed font family.
    void TextFont(const std::string& name);
    // These colours apply while the field is enabled; a disabled field has the desktop's colours.
    void TextColor(Color color);
    void BackColor(Color color);
};
