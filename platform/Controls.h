#pragma once

#include <functional>
#include <string>

#include "platform/Control.h"

// Texts are set narrower, then smaller, where they would not fit their control.

/// A label.
class StaticText : public RectControl {
  public:
    StaticText();

    std::string Text() const;
    void Text(const std::string& text);
    /// "System" or "SmallSystem".
    void TextFont(const std::string& name);
};

/// A button.
class PushButton : public RectControl {
  public:
    PushButton();

    std::function<void()> Action;

    std::string Caption() const;
    void Caption(const std::string& caption);

    /// The button that Return and Enter press from anywhere in the window.
    bool Default() const;
    void Default(bool on);
    /// The button that Escape presses.
    Property<bool> Cancel = false;
};

enum class TextAlignment { Left = 1, Centre = 2, Right = 3 };

/// A text field of one line.
class EditField : public RectControl {
  public:
    EditField();

    /// A key, as one character, before the field sees it: True consumes it. Keys held with Ctrl, Alt or Meta are
    /// commands and don't come here, nor does pasted text.
    std::function<bool(const std::string& key)> KeyDown;
    std::function<void()> LostFocus;

    std::string Text() const;
    void Text(const std::string& text);
    /// Replaces the selection; with nothing selected, inserts at the caret.
    void SelText(const std::string& text);
    void Alignment(TextAlignment alignment);
};

/// A pair of small arrows. Each event comes at the press and again and again while the button is held.
class UpDownArrows : public RectControl {
  public:
    UpDownArrows();

    std::function<void()> Up;
    std::function<void()> Down;
};
