#pragma once

#include "platform/Color.h"

/// The user-defined colours of the clock, initially the defaults.
struct ClockColours {
    Color Color_Window_Background = RGB(0x9F, 0x9F, 0x9F);
    Color Color_Clock_Wedge = RGB(0xFF, 0x00, 0x00);
    Color Color_Clock_Frame = RGB(0x00, 0x00, 0x00);
    Color Color_Clock_Face = RGB(0xFF, 0xFF, 0xFF);
};

/// A colour and its key in the settings file.
struct ColourSetting {
    const char* key;
    Color ClockColours::*colour;
};

constexpr ColourSetting kColourSettings[] = {
    {"Color_Window_Background", &ClockColours::Color_Window_Background},
    {"Color_Clock_Wedge", &ClockColours::Color_Clock_Wedge},
    {"Color_Clock_Face", &ClockColours::Color_Clock_Face},
    {"Color_Clock_Frame", &ClockColours::Color_Clock_Frame},
};
