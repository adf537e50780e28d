#include "colour/winPrefs.h"

#include <algorithm>

#include "colour/SmartColorWell.h"
#include "core/winMain.h"
#include "settings/clock_colours.h"

namespace {

/// One of the four colours: its well, the label beside it, and where the colour is kept.
struct Role {
    const char* well;
    Int32 left, top, tabIndex, labelTabIndex;
    const char* label;
    const char* text;
    void (winPrefs::*changed)(Color);
    Color winPrefs::*before;
    Color ClockColours::*onClock;
};

constexpr Role kRoles[] = {
    {"cBackground", 20, 14, 0, 5, "StaticText1", "Background", &winPrefs::cBackground_ColorChange,
     &winPrefs::mBackground, &ClockColours::Color_Window_Background},
    {"cWedge", 187, 52, 2, 7, "StaticText3", "Wedge", &winPrefs::cWedge_ColorChange, &winPrefs::mWedge,
     &ClockColours::Color_Clock_Wedge},
    {"cFace", 20, 52, 1, 6, "StaticText2", "Face", &winPrefs::cFace_ColorChange, &winPrefs::mFace,
     &ClockColours::Color_Clock_Face},
    {"cFrame", 187, 14, 11, 10, "StaticText6", "Frame", &winPrefs::cFrame_ColorChange, &winPrefs::mFrame,
     &ClockColours::Color_Clock_Frame},
};

void ShowOnClock() {
    winMain::Instance().UpdateDisplay();
    winMain::Instance().Refresh(true);
}

}  // namespace

void winPrefs::Layout() {
    Title("Preferences");
    Frame(Frames::Sheet);
    Width(368);
    Height(143);
    MinimizeButton(false);
    MaximizeButton(false);
    Resizeable(false);
}

void winPrefs::_CreateControls0() {
    for (const Role& role : kRoles) {
        auto& well = AddControl<SmartColorWell>(role.well, role.left, role.top, 32, 32, role.tabIndex);
        well.ColorChange = [this, changed = role.changed](Color c) { (this->*changed)(c); };
        AddLabel(role.label, role.text, role.left + 66, role.top + 3, 95, 20, role.labelTabIndex).LabelFor(well);
    }
    auto& ok = AddButton("bOK", "OK", 268, 101, 80, 22, 12, [this] { bOK_Action(); });
    ok.Default(true);
    auto& cancel = AddButton("bCancel", "Cancel", 176, 101, 80, 22, 13, [this] { bCancel_Action(); });
    cancel.Cancel(true);
    auto& defaults = AddButton("bDefaults", "Use Defaults", 20, 101, 103, 22, 14, [this] { bDefaults_Action(); });
    for (PushButton* button : {&ok, &cancel, &defaults})
        button->LockBottom(true);
}

void winPrefs::Event_Open() {
    for (const Role& role : kRoles)
        this->*role.before = winMain::Instance().*role.onClock;
    SetButtons();
}

// A well that changes here writes the same colour back, which does no harm.
void winPrefs::SetButtons() {
    for (const Role& role : kRoles)
        Find<SmartColorWell>(role.well).setColor(winMain::Instance().*role.onClock);
}

void winPrefs::TakeFrom(const std::string& well) {
    winMain::Instance().*std::ranges::find(kRoles, well, &Role::well)->onClock = Find<SmartColorWell>(well).getColor();
    ShowOnClock();
}

void winPrefs::bCancel_Action() {
    for (const Role& role : kRoles)
        winMain::Instance().*role.onClock = this->*role.before;
    ShowOnClock();
    Close();
}

void winPrefs::bDefaults_Action() {
    static_cast<ClockColours&>(winMain::Instance()) = ClockColours();
    ShowOnClock();
    SetButtons();
}
