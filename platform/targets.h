#pragma once

/// What differs between the platforms that the program can be built for. These are Linux's values. Each is
/// independent of the others, and the code on both sides of it is compiled.
namespace targets {

/// Files carry four-character codes of owner and type.
constexpr bool kFileCodes = false;
/// The clock leaves 6 percent of its nominal diameter free, not 3; disc and wedge are 1 percent larger.
constexpr bool kWiderClockMargin = false;
/// A canvas is cleared before a picture is copied to it, which may be transparent in parts.
constexpr bool kClearBeforeCopy = true;
/// The drawing of a colour well is a pixel smaller than the well, at the right and below.
constexpr bool kShrunkColorWell = false;
/// A drag from a colour well begins where the button was pressed, not where the pointer is by then.
constexpr bool kDragFromPress = false;
/// The settings file has a dot-file name.
constexpr bool kDotFileSettings = false;
/// Dialogs block and lie beside fullscreen; otherwise they are sheets of the timer window.
constexpr bool kModalDialogs = true;
/// The screen saver is switched off and on at the start and stop of a run.
constexpr bool kScreensaverIsSwitched = true;
/// The texts of the Help and About windows are in the font "Geneva".
constexpr bool kGenevaFont = false;

}  // namespace targets
