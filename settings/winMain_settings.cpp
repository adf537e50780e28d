#include "core/winMain.h"
#include "platform/targets.h"
#include "settings/Preferences.h"
#include "settings/default_colours.h"

namespace {

struct Setting {
    const char* key;
    Color winMain::*field;
    Color initial;
};

constexpr Setting kSettings[] = {
    {"Color_Window_Background", &winMain::Color_Window_Background, default_colours::kWindowBackground},
    {"Color_Clock_Wedge", &winMain::Color_Clock_Wedge, default_colours::kClockWedge},
    {"Color_Clock_Face", &winMain::Color_Clock_Face, default_colours::kClockFace},
    {"Color_Clock_Frame", &winMain::Color_Clock_Frame, default_colours::kClockFrame},
};

}  // namespace

void winMain::ReadPrefs() {
    Preferences preferences;
    preferences.Constructor();
    preferences.Filename = targets::kDotFileSettings ? ".DwindledialPrefs" : "DwindledialPrefs.plist";
    const bool wasRead = preferences.ReadFile();

    winMain& window = winMain::Instance();
    for (const Setting& setting : kSettings) {
        window.*setting.field = preferences.Get(setting.key, setting.initial).ColorValue();
    }
    // The first run leaves a complete file behind.
    if (!wasRead) preferences.WriteFile();
}

void winMain::WritePrefs() {
    Preferences preferences;
    preferences.Constructor();
    // The dot-file name is not the one that is read: where it is used, every run begins with the default colours.
    preferences.Filename = targets::kDotFileSettings ? ".DwindledialrPrefs" : "DwindledialPrefs.plist";

    for (const Setting& setting : kSettings)
        preferences.Put(setting.key, this->*setting.field);
    preferences.WriteFile();
}
