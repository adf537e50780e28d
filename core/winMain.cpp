#include "core/winMain.h"

#include "platform/Canvas.h"
#include "platform/Timer.h"
#include "shell/MenuBar1.h"

namespace {

constexpr Int32 kDesignWidth = 441;
constexpr Int32 kDesignHeight = 229;

}  // namespace

winMain& winMain::Instance() { return ImplicitInstance<winMain>("winMain.winMain"); }

void winMain::Layout() {
    MenuBar(MenuBar1::Instance());
    Title("Dwindledial");
    MinSize(400, 150);
    Width(kDesignWidth);
    Height(kDesignHeight);
    BackColor(Color_Window_Background);
}

void winMain::CreateControls() { _CreateControls0(); }

void winMain::_CreateControls0() {
    auto& timerRun = AddControl<Timer>("TimerRun");
    timerRun.Period(kTickMilliseconds);
    timerRun.Mode(Timer::Modes::Repeat);
    timerRun.Action = [this] { TimerRun_Action(); };

    auto& canvas = AddControl<Canvas>("cvTime", 0, 0, kDesignWidth, kDesignHeight, 0);
    canvas.LockLeft(true);
    canvas.LockTop(true);
    canvas.LockRight(true);
    canvas.LockBottom(true);
    canvas.AccessibleName("Clock");
    canvas.Accessibility = {.Role = Accessible::Roles::Picture,
                            .Description = [this] { return InWords(); },
                            .Press = [this] { ToggleTimer(); }};
    canvas.Paint = [this](const Ref<Graphics>& g) { cvTime_Paint(g); };
    canvas.MouseDown = [this](Int32 x, Int32 y) { return cvTime_MouseDown(x, y); };
    canvas.MouseMove = [this](Int32 x, Int32 y) { cvTime_MouseMove(x, y); };

    auto& timerDone = AddControl<Timer>("TimerDone");
    timerDone.Period(kBeepMilliseconds);
    timerDone.Action = [this] { TimerDone_Action(); };
}
