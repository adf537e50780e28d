#pragma once

#include <string>
#include <string_view>

#include "platform/Values.h"

// All text is UTF-8.

/// Parses the number at the beginning of `text` and ignores the rest; returns 0 if there is none. Accepts
/// leading blanks, a sign, a fraction and an exponent, or "&h" and hexadecimal digits. The decimal separator
/// is a point or the locale's; digits can't be grouped. An overflow gives infinity. Never throws.
double Val(std::string_view text);

/// Formats a number in decimal, with a point in every locale. Val returns exactly the same number.
std::string Str(double number);

/// Formats a number by a mask. Before the mask's point, the number of "0" is the minimum of digits, "#" adds
/// none, and "," groups digits by three. After the point, each "0" or "#" is a decimal place. Halves are
/// rounded away from zero; separators are the locale's. Str formats NaN and infinite numbers. Examples:
/// Format(5, "00") is "05", Format(1234.56, "#,##0.0") is "1,234.6".
std::string Format(double number, std::string_view mask);

/// Returns field `number` of `text`, counted from 1, split at each `separator`; empty if there is none.
std::string NthField(std::string_view text, std::string_view separator, Int32 number);

/// Returns `text` with the first occurrence of `find` replaced by `replacement`.
std::string Replace(std::string_view text, std::string_view find, std::string_view replacement);

/// Returns the ASCII character with this code, which must be below 128.
std::string Chr(Int32 code);
