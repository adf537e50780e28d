#pragma once

#include "platform/Host.h"
#include "platform/targets.h"

/// Functions that inhibit the screen saver while the count-down runs. Failures are not reported.
namespace ScreensaverUtilities {

/// Disables the screen saver at the start of a count; EnableScreensaverWin enables it again at the end.
inline void DisableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().InhibitScreenSaver("A count-down is running");
}
inline void EnableScreensaverWin() {
    if constexpr (targets::kScreensaverIsSwitched) Host::Current().ReleaseScreenSaver();
}

/// Reports user activity to the system. Called at every tick of a running count.
inline void DelayScreensaverMac() { Host::Current().DelayScreenSaver(); }

}  // namespace ScreensaverUtilities
