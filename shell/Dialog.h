#pragma once

#include <functional>
#include <string>

#include "platform/Controls.h"
#include "platform/Window.h"

/// The base class of the dialogs over the timer window, with what adds their controls.
class Dialog : public Window {
  protected:
    StaticText& AddLabel(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                         Int32 height, Int32 tabIndex);
    /// A field of one line with centred text, black on white whatever the desktop's colours are.
    EditField& AddField(const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                        Int32 tabIndex);
    PushButton& AddButton(const std::string& name, const std::string& caption, Int32 left, Int32 top, Int32 width,
                          Int32 height, Int32 tabIndex, const std::function<void()>& action);
};

/// What happens to a key pressed in a field for a whole number.
enum class KeyVerdict {
    ToField,    ///< the field takes it
    Swallowed,  ///< it is a printable character, but no digit
    Refused     ///< it is a digit that would make the number too large
};

/// Judges a key for a field that is to hold a number from 0 to `highest`. Control keys and characters outside
/// ASCII are left to the field. A digit removes the field's selection and is judged by the value of the whole
/// text with the digit at its end, wherever the caret is. A refused digit leaves the text as it was before.
KeyVerdict JudgeKey(EditField& field, const std::string& key, Int32 highest);
