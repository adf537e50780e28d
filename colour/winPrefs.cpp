#include "colour/winPrefs.h"

#include <utility>

#include "colour/SmartColorWell.h"
#include "core/winMain.h"
#include "platform/Controls.h"
#include "settings/default_colours.h"

namespace {

/// What each of the four colours is found by.
struct Role {
    const char* well;
    Color winMain::*onClock;
    Color winPrefs::*before;
    Color initial;
};

constexpr Role kRoles[] = {
    {"cBackground", &winMain::Color_Window_Background, &winPrefs::mBackground, default_colours::kWindowBackground},
    {"cWedge", &winMain::Color_Clock_Wedge, &winPrefs::mWedge, default_colours::kClockWedge},
    {"cFace", &winMain::Color_Clock_Face, &winPrefs::mFace, default_colours::kClockFace},
    {"cFrame", &winMain::Color_Clock_Frame, &winPrefs::mFrame, default_colours::kClockFrame},
};

void ShowOnClock() {
    winMain::Instance().UpdateDisplay();
    winMain::Instance().Refresh(true);
}

}  // namespace

winPrefs& winPrefs::Instance() { return ImplicitInstance<winPrefs>("winPrefs.winPrefs"); }

void winPrefs::Layout() {
    Title("Preferences");
    Frame(Frames::Sheet);
    Width(368);
    Height(143);
    MinimizeButton(false);
    MaximizeButton(false);
    Resizeable(false);
}

void winPrefs::CreateControls() { _CreateControls0(); }

void winPrefs::_CreateControls0() {
    const auto well = [this](const char* name, Int32 left, Int32 top, Int32 tabIndex,
                             void (winPrefs::*changed)(Color)) {
        AddControl<SmartColorWell>(name, left, top, 32, 32, tabIndex).ColorChange = [this, changed](Color c) {
            (this->*changed)(c);
        };
    };
    const auto label = [this](const char* name, const char* text, Int32 left, Int32 top, Int32 tabIndex) {
        AddControl<StaticText>(name, left, top, 95, 20, tabIndex).Text(text);
    };
    const auto button = [this](const char* name, const char* caption, Int32 left, Int32 width, Int32 tabIndex,
                               void (winPrefs::*action)()) -> PushButton& {
        auto& added = AddControl<PushButton>(name, left, 101, width, 22, tabIndex);
        added.Caption(caption);
        added.LockBottom(true);
        added.Action = [this, action] { (this->*action)(); };
        return added;
    };

    well("cBackground", 20, 14, 0, &winPrefs::cBackground_ColorChange);
    well("cFace", 20, 52, 1, &winPrefs::cFace_ColorChange);
    well("cWedge", 187, 52, 2, &winPrefs::cWedge_ColorChange);
    label("StaticText1", "Background", 86, 17, 5);
    label("StaticText2", "Face", 86, 55, 6);
    label("StaticText3", "Wedge", 253, 55, 7);
    label("StaticText6", "Frame", 253, 17, 10);
    well("cFrame", 187, 14, 11, &winPrefs::cFrame_ColorChange);
    for (const auto& [text, of] : {std::pair("StaticText1", "cBackground"),
                                   {"StaticText2", "cFace"},
                                   {"StaticText3", "cWedge"},
                                   {"StaticText6", "cFrame"}})
        Find<StaticText>(text).LabelFor(Find<SmartColorWell>(of));
    button("bOK", "OK", 268, 80, 12, &winPrefs::bOK_Action).Default(true);
    button("bCancel", "Cancel", 176, 80, 13, &winPrefs::bCancel_Action).Cancel(true);
    button("bDefaults", "Use Defaults", 20, 103, 14, &winPrefs::bDefaults_Action);
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

void winPrefs::cBackground_ColorChange(Color) {
    winMain::Instance().Color_Window_Background = Find<SmartColorWell>("cBackground").getColor();
    ShowOnClock();
}

void winPrefs::cFace_ColorChange(Color) {
    winMain::Instance().Color_Clock_Face = Find<SmartColorWell>("cFace").getColor();
    ShowOnClock();
}

void winPrefs::cWedge_ColorChange(Color) {
    winMain::Instance().Color_Clock_Wedge = Find<SmartColorWell>("cWedge").getColor();
    ShowOnClock();
}

void winPrefs::cFrame_ColorChange(Color) {
    winMain::Instance().Color_Clock_Frame = Find<SmartColorWell>("cFrame").getColor();
    ShowOnClock();
}

void winPrefs::bOK_Action() { Close(); }

void winPrefs::bCancel_Action() {
    for (const Role& role : kRoles)
        winMain::Instance().*role.onClock = this->*role.before;
    ShowOnClock();
    Close();
}

void winPrefs::bDefaults_Action() {
    for (const Role& role : kRoles)
        winMain::Instance().*role.onClock = role.initial;
    ShowOnClock();
    SetButtons();
}
