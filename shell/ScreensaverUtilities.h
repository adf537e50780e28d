#pragma once

#include "platform/Host.h"
#include "platform/targets.h"

/// Keeps the screen saver away while the count-down runs. Failures are not reported.
namespace ScreensaverUtilities {

/// Switch the screen saver off at the start of a run and on again at its end.
inline void DisableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().InhibitScreenSaver("A count-down is running");
}
inline void EnableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().ReleaseScreenSaver();
}

/// Reports activity of the user to the system. Called at every tick of a run.
inline void DelayScreensaverMac() { Host::Current().DelayScreenSaver(); }

}  // namespace ScreensaverUtilities
