#include "colour/winPrefs.h"

#include <utility>

#include "colour/SmartColorWell.h"
#include "core/winMain.h"
#include "platform/Controls.h"
#include "settings/default_colours.h"

namespace {

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
    const auto& timer = winMain::Instance();
    mBackground = timer.Color_Window_Background;
    mWedge = timer.Color_Clock_Wedge;
    mFace = timer.Color_Clock_Face;
    mFrame = timer.Color_Clock_Frame;
    SetButtons();
}

// A well that changes here writes the same colour back, which does no harm.
void winPrefs::SetButtons() {
    const auto& timer = winMain::Instance();
    Find<SmartColorWell>("cBackground").setColor(timer.Color_Window_Background);
    Find<SmartColorWell>("cWedge").setColor(timer.Color_Clock_Wedge);
    Find<SmartColorWell>("cFace").setColor(timer.Color_Clock_Face);
    Find<SmartColorWell>("cFrame").setColor(timer.Color_Clock_Frame);
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
    auto& timer = winMain::Instance();
    timer.Color_Window_Background = mBackground;
    timer.Color_Clock_Wedge = mWedge;
    timer.Color_Clock_Face = mFace;
    timer.Color_Clock_Frame = mFrame;
    ShowOnClock();
    Close();
}

void winPrefs::bDefaults_Action() {
    auto& timer = winMain::Instance();
    timer.Color_Window_Background = default_colours::kWindowBackground;
    timer.Color_Clock_Wedge = default_colours::kClockWedge;
    timer.Color_Clock_Face = default_colours::kClockFace;
    timer.Color_Clock_Frame = default_colours::kClockFrame;
    ShowOnClock();
    SetButtons();
}
