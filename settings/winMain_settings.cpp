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
    // The first run leaves a complete file behind.
    if (!wasRead) preferences.WriteFile();
}

void winMain::WritePrefs() {
    Preferences preferences;
    preferences.Constructor();
    // The dot-file name is not the one that is read: where it is used, every run begins with the default colours.
    preferences.Filename = targets::kDotFileSettings ? ".DwindledialrPrefs" : "DwindledialPrefs.plist";

    for (const auto& [key, colour] : kColourSettings)
        preferences.Put(key, this->*colour);
    preferences.WriteFile();
}
