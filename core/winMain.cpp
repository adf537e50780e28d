#include "core/winMain.h"

#include "platform/Canvas.h"
#include "platform/Keyboard.h"
#include "platform/Text.h"
#include "platform/Timer.h"
#include "shell/App.h"
#include "shell/MenuBar1.h"

void winMain::Layout() {
    MenuBar(MenuBar1::Instance());
    Title("Dwindledial");
    MinSize(400, 150);
    Width(441);
    Height(229);
    BackColor(RGB(0x9F, 0x9F, 0x9F));  // constant, because it is seen only before the first paint
}

void winMain::_CreateControls0() {
    auto& timerRun = AddControl<Timer>("TimerRun");
    timerRun.Period(kTickMilliseconds);
    timerRun.Mode(Timer::Modes::Repeat);
    timerRun.Action = [this] { TimerRun_Action(); };

    auto& canvas = AddControl<Canvas>("cvTime", 0, 0, Width(), Height(), 0);
    canvas.LockLeft(true);
    canvas.LockTop(true);
    canvas.LockRight(true);
    canvas.LockBottom(true);
    canvas.AccessibleName("Clock");
    canvas.Accessibility = {.Role = Accessible::Roles::Picture,
                            .Description = [this] { return StateInWords(); },
                            .Press = [this] { ToggleTimer(); }};
    canvas.Paint = [this](const Ref<Graphics>& g) { cvTime_Paint(g); };
    canvas.MouseDown = [this](Int32 x, Int32 y) { return cvTime_MouseDown(x, y); };
    canvas.MouseMove = [this](Int32 x, Int32 y) { cvTime_MouseMove(x, y); };

    auto& timerDone = AddControl<Timer>("TimerDone");
    timerDone.Period(kBeepMilliseconds);
    timerDone.Action = [this] { TimerDone_Action(); };
}

// Returns false because only the press matters: drags and the release need not be delivered.
bool winMain::cvTime_MouseDown(Int32 x, Int32 y) {
    if (StatusIcon::Contains(x, y)) ToggleTimer();
    return false;
}

void winMain::cvTime_MouseMove(Int32 x, Int32 y) {
    App::Instance().MouseCursor(StatusIcon::Contains(x, y) ? FingerPointer : StandardPointer);
}

// Reads the settings first, so that the first paint uses the stored colours.
void winMain::Event_Open() {
    ReadPrefs();
    Stop();
}

// Closing the timer window quits the program without confirmation, even during a count or a movie job.
void winMain::Event_Close() {
    WritePrefs();
    Quit(0);
}

bool winMain::Event_KeyDown(const std::string& key) {
    if (key != Chr(Keyboard::kReturn) && key != Chr(Keyboard::kEnter) && key != Chr(Keyboard::kSpace)) return false;
    ToggleTimer();
    return true;
}
