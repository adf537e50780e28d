#pragma once

/// Keeps the screen saver away while the count-down runs. Where it fails, nothing is said.
namespace ScreensaverUtilities {

/// Switch the screen saver off and on: the first at the start of a run, the second at its end.
void DisableScreensaverWin();
void EnableScreensaverWin();

/// Counts as activity of the user; called at every tick of a run.
void DelayScreensaverMac();

}  // namespace ScreensaverUtilities
