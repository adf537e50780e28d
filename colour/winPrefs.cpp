#include "colour/winPrefs.h"

#include <algorithm>

#include "colour/SmartColorWell.h"
#include "core/winMain.h"
#include "settings/clock_colours.h"

namespace {

/// One of the four colours: its well, the label beside it, and where the colour is kept.
struct ColourRow {
    const char* well;
    Int32 left, top, tabIndex, labelTabIndex;
    const char* label;
    const char* text;
    void (winPrefs::*changed)(Color);
    Color winPrefs::*before;
    Color ClockColours::*onClock;
};

enum { kBackground, kWedge, kFace, kFrame };

constexpr ColourRow kColours[] = {
    {.well = "cBackground",
     .left = 20,
     .top = 14,
     .tabIndex = 0,
     .labelTabIndex = 5,
     .label = "StaticText1",
     .text = "Background",
     .changed = &winPrefs::cBackground_ColorChange,
     .before = &winPrefs::mBackground,
     .onClock = &ClockColours::Color_Window_Background},
    {.well = "cWedge",
     .left = 187,
     .top = 52,
     .tabIndex = 2,
     .labelTabIndex = 7,
     .label = "StaticText3",
     .text = "Wedge",
     .changed = &winPrefs::cWedge_ColorChange,
     .before = &winPrefs::mWedge,
     .onClock = &ClockColours::Color_Clock_Wedge},
    {.well = "cFace",
     .left = 20,
     .top = 52,
     .tabIndex = 1,
     .labelTabIndex = 6,
     .label = "StaticText2",
     .text = "Face",
     .changed = &winPrefs::cFace_ColorChange,
     .before = &winPrefs::mFace,
     .onClock = &ClockColours::Color_Clock_Face},
    {.well = "cFrame",
     .left = 187,
     .top = 14,
     .tabIndex = 11,
     .labelTabIndex = 10,
     .label = "StaticText6",
     .text = "Frame",
     .changed = &winPrefs::cFrame_ColorChange,
     .before = &winPrefs::mFrame,
     .onClock = &ClockColours::Color_Clock_Frame},
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
    const auto addWell = [this](const ColourRow& colour) {
        auto& well = AddControl<SmartColorWell>(colour.well, colour.left, colour.top, 32, 32, colour.tabIndex);
        well.ColorChange = [this, changed = colour.changed](Color c) { (this->*changed)(c); };
    };
    // Screen readers list the controls as they were added, which is the order of the tab indexes.
    for (const int colour : {kBackground, kFace, kWedge})
        addWell(kColours[colour]);
    for (const int i : {kBackground, kFace, kWedge, kFrame}) {
        const ColourRow& colour = kColours[i];
        AddLabel(colour.label, colour.text, colour.left + 66, colour.top + 3, 95, 20, colour.labelTabIndex);
    }
    addWell(kColours[kFrame]);
    for (const ColourRow& colour : kColours)
        Find<StaticText>(colour.label).LabelFor(Find<SmartColorWell>(colour.well));
    auto& ok = AddButton("bOK", "OK", 268, 101, 80, 22, 12, [this] { bOK_Action(); });
    ok.Default(true);
    auto& cancel = AddButton("bCancel", "Cancel", 176, 101, 80, 22, 13, [this] { bCancel_Action(); });
    cancel.Cancel(true);
    auto& defaults = AddButton("bDefaults", "Use Defaults", 20, 101, 103, 22, 14, [this] { bDefaults_Action(); });
    for (PushButton* button : {&ok, &cancel, &defaults})
        button->LockBottom(true);
}

void winPrefs::Event_Open() {
    for (const ColourRow& colour : kColours)
        this->*colour.before = winMain::Instance().*colour.onClock;
    SetButtons();
}

// A well that changes here writes the same colour back, which does no harm.
void winPrefs::SetButtons() {
    for (const ColourRow& colour : kColours)
        Find<SmartColorWell>(colour.well).setColor(winMain::Instance().*colour.onClock);
}

void winPrefs::TakeFrom(const std::string& well) {
    const auto* colour = std::ranges::find(kColours, well, &ColourRow::well);
    winMain::Instance().*colour->onClock = Find<SmartColorWell>(well).getColor();
    ShowOnClock();
}

void winPrefs::bCancel_Action() {
    for (const ColourRow& colour : kColours)
        winMain::Instance().*colour.onClock = this->*colour.before;
    ShowOnClock();
    Close();
}

void winPrefs::bDefaults_Action() {
    static_cast<ClockColours&>(winMain::Instance()) = ClockColours();
    ShowOnClock();
    SetButtons();
}
