#pragma once

#include <string>
#include <string_view>

#include "platform/Values.h"

// Text is UTF-8.

/// The number with which `text` begins, 0 if there is none. Leading blanks, a sign, a fraction and an
/// exponent are read, "&h" begins a hexadecimal number, what follows the number is ignored. A fraction begins
/// with a point or with the decimal separator of the user's locale; groups of digits have no separators. A
/// number too large for a Double is infinite; nothing throws.
double Val(std::string_view text);

/// A number as decimal text, with a point whatever the locale; Val gives exactly the same number back.
std::string Str(double number);

/// A number by a picture mask: every "0" before the point is a digit that is always written, "#" one that may
/// be; a "," groups the digits by three; the digits after the point are the places to which the number is
/// rounded, half away from zero. Separators are those of the user's locale: Format(5, "00") is "05",
/// Format(1234.56, "###,##0.0") "1,234.6". NaN and infinite numbers are written as by Str.
std::string Format(double number, std::string_view mask);

/// The `number`th field of `text`, counting from 1, with `separator` between fields; empty if there is none.
std::string NthField(std::string_view text, std::string_view separator, Int32 number);

/// `text` with the first `find` in it replaced by `replacement`.
std::string Replace(std::string_view text, std::string_view find, std::string_view replacement);

/// The character of a code below 128.
std::string Chr(Int32 code);
