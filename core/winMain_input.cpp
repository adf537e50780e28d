#include "core/winMain.h"
#include "platform/Application.h"
#include "platform/Text.h"
#include "shell/App.h"

// False: a press is all that counts, no drag or release need follow.
bool winMain::cvTime_MouseDown(Int32 x, Int32 y) {
    if (StatusIcon::Contains(x, y)) ToggleTimer();
    return false;
}

void winMain::cvTime_MouseMove(Int32 x, Int32 y) {
    App::Instance().MouseCursor(StatusIcon::Contains(x, y) ? FingerPointer : StandardPointer);
}

// The colours come first, so that the first paint has them.
void winMain::Event_Open() {
    ReadPrefs();
    Stop();
}

void winMain::Event_Resizing() { UpdateDisplay(); }

void winMain::Event_Resized() { UpdateDisplay(); }

// To close the timer is to quit: nothing is asked, whatever is running.
void winMain::Event_Close() {
    WritePrefs();
    Quit(0);
}

bool winMain::Event_KeyDown(const std::string& key) {
    if (key != Chr(Keyboard::kReturn) && key != Chr(Keyboard::kEnter) && key != Chr(Keyboard::kSpace)) return false;
    ToggleTimer();
    return true;
}
