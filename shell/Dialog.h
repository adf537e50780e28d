#pragma once

#include <functional>
#include <string>

#include "platform/Controls.h"
#include "platform/Window.h"

/// A dialog over the timer window: how it adds its controls, and how its fields for a whole number judge keys.
class Dialog : public Window {
  protected:
    StaticText& AddLabel(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                         Int32 height, Int32 tabIndex);
    /// A field of one line, its text in the middle, black on white whatever the desktop's colours.
    EditField& AddField(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                        Int32 tabIndex);
    PushButton& AddButton(const std::string& name, const std::string& caption, Int32 left, Int32 top, Int32 width,
                          Int32 height, Int32 tabIndex, const std::function<void()>& action);
};

/// What becomes of a key that is pressed in a field for a whole number.
enum class KeyVerdict {
    ToField,    ///< the field takes it
    Swallowed,  ///< no digit
    Refused     ///< a digit that would make the number too large
};

/// Judges a key for a field that is to hold a number from 0 to `highest`. Control keys, and characters outside of plain
/// ASCII, are left to the field. A digit is judged by the value of the whole text with the digit put at its end,
/// wherever the caret is; the field's selection goes before. A digit that is refused leaves the text as it was.
KeyVerdict JudgeKey(EditField& field, const std::string& key, Int32 highest);
