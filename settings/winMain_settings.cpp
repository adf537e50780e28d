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
    // So the first run leaves a complete file behind.
    if (!wasRead) preferences.WriteFile();
}

void winMain::WritePrefs() {
    Preferences preferences;
    preferences.Constructor();
    // The dot-file that is read has another name, so with dot-files each run begins with the default colours.
    preferences.Filename = targets::kDotFileSettings ? ".DwindledialrPrefs" : "DwindledialPrefs.plist";

    for (const auto& [key, colour] : kColourSettings)
        preferences.Put(key, this->*colour);
    preferences.WriteFile();
}
