#pragma once

#include <string>
#include <string_view>

#include "platform/Values.h"

// Text is UTF-8.

/// The number with which `text` begins; 0 if there is none. Reads leading blanks, a sign, a fraction and an
/// exponent, or "&h" and hexadecimal digits; ignores what follows. A fraction begins with a point or the user's
/// decimal separator; digits aren't grouped. A number too large for a Double is infinite. Nothing throws.
double Val(std::string_view text);

/// A number as decimal text, with a point whatever the locale; Val gives exactly the same number back.
std::string Str(double number);

/// A number by a mask. Before its point, each "0" is a digit that is always written and "#" one that may be; a
/// "," groups the digits by three. The digits after the point are the places to which the number is rounded,
/// half away from zero. Separators are the user's: Format(5, "00") is "05", Format(1234.56, "#,##0.0") "1,234.6".
/// NaN and infinite numbers are written as by Str.
std::string Format(double number, std::string_view mask);

/// The `number`th field of `text`, counting from 1, with `separator` between fields; empty if there is none.
std::string NthField(std::string_view text, std::string_view separator, Int32 number);

/// `text` with the first `find` in it replaced by `replacement`.
std::string Replace(std::string_view text, std::string_view find, std::string_view replacement);

/// The character of a code below 128.
std::string Chr(Int32 code);
