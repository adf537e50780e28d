#include "platform/Text.h"

#include <locale.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr auto kFixed = std::chars_format::fixed;

/// Returns the longest prefix of `text` that consists only of `characters`.
std::string Leading(std::string_view text, std::string_view characters) {
    return std::string(text.substr(0, text.find_first_not_of(characters)));
}

double ParseNumber(const std::string& text) {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text.c_str(), nullptr, plain);
}

/// Returns `text` with the locale's first decimal separator replaced by a point, if a digit follows it.
std::string WithPoint(std::string_view text) {
    const std::string_view separator = localeconv()->decimal_point;
    const std::size_t found = text.find(separator);
    std::string result(text);
    if (found != npos && !Leading(text.substr(found + separator.size()), "0123456789").empty())
        result.replace(found, separator.size(), ".");
    return result;
}

std::size_t Count(std::string_view text, char character) {
    return static_cast<std::size_t>(std::ranges::count(text, character));
}

/// Formats a number that isn't negative with this many decimal places, rounding halves up.
std::string RoundedDigits(double number, std::size_t places) {
    // The number is rounded here, because to_chars rounds halves to even. From 2^53 on it has no fraction.
    const double scale = std::pow(10.0, places);
    const double scaled = number * scale;
    const double rounded = scaled < 0x1p53 ? std::round(scaled) / scale : number;

    std::string digits(std::numeric_limits<double>::max_exponent10 + 2 + places, '\0');
    char* const end = digits.data() + digits.size();
    return {digits.data(), std::to_chars(digits.data(), end, rounded, kFixed, static_cast<int>(places)).ptr};
}

std::string Grouped(std::string digits) {
    std::string separator = localeconv()->thousands_sep;
    // The "C" locale has no thousands separator, but the mask asks for one.
    if (separator.empty() && std::string_view(localeconv()->decimal_point) == ".") separator = ",";
    for (std::size_t end = digits.size(); end > 3;) {
        end -= 3;
        digits.insert(end, separator);
    }
    return digits;
}

}  // namespace

double Val(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (text.starts_with("&h") || text.starts_with("&H"))
        return ParseNumber("0x" + Leading(text.substr(2), "0123456789abcdefABCDEF"));
    // Other characters are cut off, because strtod would also accept "inf" and "0x10".
    return ParseNumber(Leading(WithPoint(text), "+-.0123456789eE"));
}

std::string Str(double number) {
    std::array<char, 400> digits;  // the longest text, of a very small number, has 327 characters
    char* const end = digits.data() + digits.size();
    return {digits.data(), std::to_chars(digits.data(), end, number, kFixed).ptr};
}

std::string Format(double number, std::string_view mask) {
    if (!std::isfinite(number)) return Str(number);
    const std::size_t maskPoint = std::min(mask.find('.'), mask.size());
    const std::string_view wholeMask = mask.substr(0, maskPoint);
    const std::string_view fractionMask = mask.substr(maskPoint);
    const std::size_t places = Count(fractionMask, '0') + Count(fractionMask, '#');
    const std::size_t leastDigits = Count(wholeMask, '0');

    const std::string digits = RoundedDigits(std::abs(number), places);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    std::string whole = digits.substr(0, point);
    if (whole == "0") whole.clear();
    if (whole.size() < leastDigits) whole.insert(0, leastDigits - whole.size(), '0');
    if (wholeMask.find(',') != npos) whole = Grouped(whole);

    const bool isZero = digits.find_first_not_of("0.") == npos;
    if (number < 0 && !isZero) whole.insert(0, "-");
    return places == 0 ? whole : whole + localeconv()->decimal_point + digits.substr(point + 1);
}

std::string NthField(std::string_view text, std::string_view separator, Int32 number) {
    if (number < 1) return {};
    for (; number > 1; --number) {
        const std::size_t cut = text.find(separator);
        if (cut == npos) return {};
        text.remove_prefix(cut + separator.size());
    }
    return std::string(text.substr(0, text.find(separator)));
}

std::string Replace(std::string_view text, std::string_view find, std::string_view replacement) {
    std::string result(text);
    const std::size_t found = text.find(find);
    if (found != npos && !find.empty()) result.replace(found, find.size(), replacement);
    return result;
}

std::string Chr(Int32 code) { return {static_cast<char>(code)}; }
