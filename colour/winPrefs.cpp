#include "colour/winPrefs.h"

#include <algorithm>

#include "colour/SmartColorWell.h"
#include "core/winMain.h"
#include "settings/clock_colours.h"

namespace {

struct Well {
    const char* name;
    Int32 left, top, tabIndex;
};
struct Label {
    const char* name;
    const char* text;
    Int32 tabIndex;
};
/// One of the four colours: its well, its label, its handler and the fields that store it.
struct ColourRow {
    Well well;
    Label label;
    void (winPrefs::*changed)(Color);
    Color winPrefs::*before;
    Color ClockColours::*onClock;
};

enum { kBackground, kWedge, kFace, kFrame };

constexpr ColourRow kColours[] = {
    {.well = {"cBackground", 20, 14, 0},
     .label = {"StaticText1", "Background", 5},
     .changed = &winPrefs::cBackground_ColorChange,
     .before = &winPrefs::mBackground,
     .onClock = &ClockColours::Color_Window_Background},
    {.well = {"cWedge", 187, 52, 2},
     .label = {"StaticText3", "Wedge", 7},
     .changed = &winPrefs::cWedge_ColorChange,
     .before = &winPrefs::mWedge,
     .onClock = &ClockColours::Color_Clock_Wedge},
    {.well = {"cFace", 20, 52, 1},
     .label = {"StaticText2", "Face", 6},
     .changed = &winPrefs::cFace_ColorChange,
     .before = &winPrefs::mFace,
     .onClock = &ClockColours::Color_Clock_Face},
    {.well = {"cFrame", 187, 14, 11},
     .label = {"StaticText6", "Frame", 10},
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
        const auto& [name, left, top, tabIndex] = colour.well;
        AddControl<SmartColorWell>(name, left, top, 32, 32, tabIndex).ColorChange =
            [this, changed = colour.changed](Color c) { (this->*changed)(c); };
    };
    // Screen readers list controls in the order of their creation, so they are created in tab order.
    for (const int colour : {kBackground, kFace, kWedge})
        addWell(kColours[colour]);
    for (const int i : {kBackground, kFace, kWedge, kFrame}) {
        const auto& [name, text, tabIndex] = kColours[i].label;
        AddLabel(name, text, kColours[i].well.left + 66, kColours[i].well.top + 3, 95, 20, tabIndex);
    }
    addWell(kColours[kFrame]);
    for (const ColourRow& colour : kColours)
        Find<StaticText>(colour.label.name).LabelFor(Find<SmartColorWell>(colour.well.name));
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

// A well whose colour changes here sets the same colour on the clock again, which is harmless.
void winPrefs::SetButtons() {
    for (const ColourRow& colour : kColours)
        Find<SmartColorWell>(colour.well.name).setColor(winMain::Instance().*colour.onClock);
}

void winPrefs::TakeFrom(const std::string& well) {
    const auto* colour = std::ranges::find_if(kColours, [&](const ColourRow& row) { return row.well.name == well; });
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
