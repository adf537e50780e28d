#pragma once

#include <string>

#include "platform/Values.h"

class EditField;

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
