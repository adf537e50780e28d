#include "shell/ScreensaverUtilities.h"

#include "platform/Host.h"
#include "platform/targets.h"

void ScreensaverUtilities::DisableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().InhibitScreenSaver();
}

void ScreensaverUtilities::EnableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().ReleaseScreenSaver();
}

void ScreensaverUtilities::DelayScreensaverMac() { Host::Current().DelayScreenSaver(); }
