#include "platform/Text.h"

#include <cmath>
#include <utility>

#include "colour/SmartColorWell.h"
#include "platform/Variant.h"
#include "platform/Window.h"
#include "tests/fuzz/fuzz.h"

// What comes from fields and drops: a number, a colour, a text to be cut.

namespace {

void TryNumber(std::string_view text) {
    const double number = Val(text);
    Require(!std::isnan(number), "Val gives a number");
    Require(Val(Str(number)) == number || std::isinf(number), "Str gives what Val reads");
    Require(Val(Str(ToInt32(number))) == ToInt32(number), "the same for whole numbers");
    Require(std::isinf(number) || !Format(number, "###,##0.0").empty(), "Format gives digits");
}

struct Wells final : Window {
    static Wells& Instance() { return ImplicitInstance<Wells>("Wells.Wells"); }
    void CreateControls() override { AddControl<SmartColorWell>("well", 0, 0, 8, 8, 0); }
};

/// What a well of another colour shows and writes when a text was dropped on it.
std::pair<Color, std::string> Dropped(const std::string& text) {
    auto& well = Wells::Instance().Find<SmartColorWell>("well");
    well.setColor(well.getColor() == RGB(1, 2, 3) ? RGB(4, 5, 6) : RGB(1, 2, 3));
    well.setColorFromHexString(text);
    return {well.getColor(), well.getColorAsHexString()};
}

void TryColour(const std::string& text) {
    const auto [color, hex] = Dropped(text);
    Require(color.value >= 0 && color.value <= 0xFFFFFF, "a colour has 24 bits");
    Require(hex.size() == 7 && Variant(hex).ColorValue() == color, "the settings read what a well writes");
    Require(Variant(color).StringValue() == hex, "and write the same");
    Require(Dropped(hex).first == color, "a well takes it again");
}

void TryPieces(const std::string& text) {
    const std::string first = NthField(text, "\"", 1);
    Require(text.starts_with(first) && first.find('"') == std::string::npos, "the first piece ends at the separator");
    Require(first != text || NthField(text, "\"", 2).empty(), "a second piece needs a separator");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    TryNumber(text);
    TryColour(text);
    TryPieces(text);
    return 0;
}
