#include "shell/winHelp.h"

#include "platform/StyledTextField.h"
#include "platform/targets.h"
#include "shell/Dialog.h"
#include "shell/markup.h"

namespace {

/// The user guide, in mark-up (shell/markup.h); carriage returns separate its lines.
constexpr const char* kHelpText =
    "<b><font size=\"14\">Dwindledial - Help</font></b>\r"
    "\r"
    "<b>Contents</b>\r"
    "- Overview\r"
    "- Usage\r"
    "\r"
    "\r"
    "<b>Overview</b>\r"
    "\r"
    "Dwindledial is a simple count-down timer application with a visual read-out. The remaining time is shown as "
    "wedge that becomes smaller as time passes.\r"
    "\r"
    "\r"
    "<b>Usage</b>\r"
    "\r"
    "<i><b>Setting the Start Time</b></i>\r"
    "Use the <i>Timer/Set...</i> menu to open the dialog to set the timer. Use the up-down arrows to adjust the "
    "start time in minutes (0 to 60) and seconds (0 to 59), or enter the start time using the keyboard. Press the "
    "<i>Set</i> button to set the timer to the selected start time. The dialog will close and the timer will be set "
    "to the selected time.\r"
    "The start time can only be set when the timer is not currently running.\r"
    "\r"
    "\r"
    "<i><b>Starting and stopping the Timer</b></i>\r"
    "Use the <i>Timer/Start</i> menu to start the timer. While the timer is running, use the <i>Timer/Stop</i> menu "
    "to stop it. Alternatively, the <i>ENTER</i> key can also be used to start or stop the timer.\r"
    "\r"
    "Once the count-down has ended, an alert will be displayed and system beeps will be played in 1 second intervals "
    "until the alert is dismissed by pressing using the <i>Timer/Dismiss</i> menu or pressing the <i>ENTER</i> key.\r"
    "\r"
    "\r"
    "<i><b>The Status Icon</b></i>\r"
    "The icon in the top left corner of the timer window reflects the current state of the timer. There are three "
    "possible states:\r"
    "- <i>Stopped</i>: Indicated by a \"Pause\" symbol. The timer is not currently running. Clicking on the icon "
    "will resume only if there is time remaining on the timer or if the time has been set. Otherwise clicking on the "
    "icon will have no effect.\r"
    "- <i>Running</i>: Indicated by a \"Play\" symbol. The timer is currently running. Clicking on the icon will "
    "Stop the timer.\r"
    "- <i>Alert</i>: Indicated by an \"Alert\" symbol. The timer has expired. Clicking on the icon will dismiss the "
    "alert.\r"
    "\r"
    "\r"
    "<i><b>Full Screen Mode</b></i>\r"
    "At any time, use the <i>View/Toggle Fullscreen</i> menu to switch between windowed and fullscreen mode.\r"
    "While the timer is running, any active screensaver will be suspended.\r"
    "\r"
    "\r"
    "<i><b>Color Preferences</b></i>\r"
    "Whenever the timer is not currently running, use the <i>Preferences...</i> menu to open the color preferences "
    "dialog. Use the color buttons to assign new colors to the various elements of the Dwindledial clock face. The "
    "<i>Use Defaults</i> button returns the color settings to the default colors.\r"
    "\r"
    "\r"
    "<i><b>Creating Dwindledial Movies</b></i>\r"
    "Movies of almost any size and frame rates as low as 0.1 (i.e. one frame every 10 seconds) can be created via "
    "the <i>File/Create Movie...</i> menu. Apple QuickTime is required to be installed on the user's computer to "
    "enable this capability. Using proper compression options (provided by QuickTime) allows for minimal movie file "
    "size and compatibilty with many devices capable of playing movies such as iPods, AppleTVs, smart phones, etc, "
    "which is ideal for situations where a visual timer is needed but no computer is available.\r"
    "\r"
    "The <i>File/Create Movie...</i> menu displays a dialog window with settings for creating Dwindledial movies. "
    "The dialog is populated with default settings to create a 60 minute movie with one frame at every second, with "
    "a size of 320 by 240 pixels.\r"
    "\r"
    "<i>Start Time</i>\r"
    "This specifies the start time in seconds to be used. A maximum start time of 3600 seconds (1 hour) can be "
    "specified. E.g. for a selection of 3600 seconds the resulting movie will be 1 hour long.\r"
    "\r"
    "<i>Frame Size</i>\r"
    "This specifies the frame height and width of the movie. Refer to the specifications of the movie player for "
    "which you are generating the movie. E.g. iPods are compatible with a frame size of 320 by 240 pixels while "
    "1080p HDTVs can play movies with frame sizes of up to 1920 by 1080 pixels.\r"
    "\r"
    "<i>Clock Size</i>\r"
    "This determines the size of the clock face in relation to the smaller one of the frame dimensions. E.g. for a "
    "frame size of 320 by 240 pixels, and a relative clock size of 90%, the diameter of the clock in the movie will "
    "be 90% of 240 pixels, i.e. 216 pixels, centered in the frame. It is recommended to use clock sizes of less than "
    "100% for movies that are intended to be played on systems with overscan, such as televisions.\r"
    "\r"
    "<i>Frame Rate</i>\r"
    "This determines how many frames should be rendered for each second of the movie. Refer to the specifications "
    "the movie player for which you are generating the movie. Most computer base movie players can play any frame "
    "rate, even very low rates such as 0.1 (i.e. only one frame every 10 seconds) while DVD player can only play "
    "movies with 30 (NTSC) or 25 (PAL) frames per second.\r"
    "\r"
    "<i>Show Compression Settings</i>\r"
    "When checked, a dialog for setting movie compression options will be displayed after clicking <i>Start</i>. If "
    "the check box is left unchecked, the movie will be saved in uncompressed format. It is recommended to leave "
    "this option checked as an uncompressed movie file can be very large.\r"
    "\r"
    "<i>Open Movie upon Completion</i>\r"
    "If checked, this box gives the user the option to automatically open the finished movie with the default movie "
    "player application.\r"
    "\r"
    "All of the above settings have an impact on the time required to generate the movie as well as size of the "
    "resulting movie file. It is recommended to start experimenting with these settings by generating small movies "
    "using the default settings and a <i>Start Time</i> of no more than 600 seconds (10 minutes).";

}  // namespace

winHelp& winHelp::Instance() { return ImplicitInstance<winHelp>("winHelp.winHelp"); }

void winHelp::Layout() {
    Title("Help");
    MinSize(64, 64);
    Width(400);
    Height(400);
    MaximizeButton(false);
}

void winHelp::CreateControls() { _CreateControls0(); }

// One pixel larger than the window on each side, which leaves the field's border outside.
void winHelp::_CreateControls0() {
    auto& guide = AddControl<StyledTextField>("EditField1", -1, -1, 402, 402, 0);
    guide.LockLeft(true);
    guide.LockTop(true);
    guide.LockRight(true);
    guide.LockBottom(true);
    guide.TextSize(12);
    guide.TextColor(RGB(0, 0, 0));
    guide.BackColor(RGB(255, 255, 255));
    guide.Text(kHelpText);
    guide.Open = [this] { EditField1_Open(); };
}

void winHelp::EditField1_Open() {
    auto& guide = Find<StyledTextField>("EditField1");
    if constexpr (targets::kGenevaFont) guide.TextFont("Geneva");
    guide.StyledText(ParseMarkup(guide.Text(), guide.TextSize()));
}

bool winHelp::Event_KeyDown(const std::string& key) { return CloseOnEscape(*this, key); }
