#pragma once

/// The differences between the platforms that the program can be built for, with Linux's values. Each comment
/// describes what true means. The constants are independent, and the code for both values is always compiled.
namespace targets {

/// Files are given four-character codes of creator and type.
constexpr bool kFileCodes = false;
/// The clock leaves 6 percent of its nominal diameter free instead of 3; disc and wedge are 1 percent larger.
constexpr bool kWiderClockMargin = false;
/// A canvas is cleared before a picture that may be transparent in parts is copied to it.
constexpr bool kClearBeforeCopy = true;
/// A colour well is drawn one pixel narrower and shorter than its bounds.
constexpr bool kShrunkColorWell = false;
/// A drag from a colour well begins where the button was pressed, not at the pointer's present position.
constexpr bool kDragFromPress = false;
/// The name of the settings file begins with a dot.
constexpr bool kDotFileSettings = false;
/// Dialogs are modal, and fullscreen is left while they show; otherwise they are sheets of the timer window.
constexpr bool kModalDialogs = true;
/// The screen saver is inhibited while the count-down runs.
constexpr bool kScreensaverIsSwitched = true;
/// The Help and About windows use the font "Geneva".
constexpr bool kGenevaFont = false;

}  // namespace targets
