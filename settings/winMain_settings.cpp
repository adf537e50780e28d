#include "core/winMain.h"
#include "platform/targets.h"
#include "settings/Preferences.h"
#include "settings/clock_colours.h"

void winMain::ReadPrefs() {
    Preferences preferences;
    preferences.Constructor();
    preferences.Filename = targets::kDotFileSettings ? ".DwindledialPrefs" : "DwindledialPrefs.plist";
    const bool wasRead = preferences.ReadFile();

    winMain& window = winMain::Instance();
    for (const auto& [key, colour] : kColourSettings)
        window.*colour = preferences.Get(key, ClockColours().*colour).ColorValue();
    // The first run thus creates a complete file.
    if (!wasRead) preferences.WriteFile();
}

void winMain::WritePrefs() {
    Preferences preferences;
    preferences.Constructor();
    // ReadPrefs reads another dot-file, so with dot-files every run starts with the default colours.
    preferences.Filename = targets::kDotFileSettings ? ".DwindledialrPrefs" : "DwindledialPrefs.plist";

    for (const auto& [key, colour] : kColourSettings)
        preferences.Put(key, this->*colour);
    preferences.WriteFile();
}
