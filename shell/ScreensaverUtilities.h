#pragma once

#include "platform/Host.h"
#include "platform/targets.h"

/// Keeps the screen saver away while the count-down runs. Where it fails, nothing is said.
namespace ScreensaverUtilities {

/// Switch the screen saver off and on: the first at the start of a run, the second at its end.
inline void DisableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().InhibitScreenSaver();
}
inline void EnableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().ReleaseScreenSaver();
}

/// Counts as activity of the user; called at every tick of a run.
inline void DelayScreensaverMac() { Host::Current().DelayScreenSaver(); }

}  // namespace ScreensaverUtilities
