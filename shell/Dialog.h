#pragma once

#include <functional>
#include <string>

#include "platform/Controls.h"
#include "platform/Window.h"

/// The base class of the dialogs over the timer window, with helpers to add controls.
class Dialog : public Window {
  protected:
    StaticText& AddLabel(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                         Int32 height, Int32 tabIndex);
    /// Adds a single-line field with centred text, black on white in any desktop theme.
    EditField& AddField(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                        Int32 tabIndex);
    PushButton& AddButton(const std::string& name, const std::string& caption, Int32 left, Int32 top, Int32 width,
                          Int32 height, Int32 tabIndex, const std::function<void()>& action);
};

/// The treatment of a key pressed in a field for a whole number.
enum class KeyVerdict {
    ToField,    ///< the field handles the key
    Swallowed,  ///< the key is ignored, because it is a printable character but not a digit
    Refused     ///< the key is ignored, because the digit would make the number too large
};

/// Judges a key pressed in a field for a number from 0 to `highest`. Control keys and non-ASCII characters go
/// to the field. A digit first deletes the selection. It is refused, and the text restored, if the remaining
/// text with the digit appended at the end, wherever the caret is, exceeds `highest`.
KeyVerdict JudgeKey(EditField& field, const std::string& key, Int32 highest);
