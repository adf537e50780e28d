#include "shell/winSet.h"

#include <algorithm>

#include "core/winMain.h"
#include "platform/Text.h"

namespace {

constexpr Int32 kMaxMinutes = 60;
constexpr Int32 kMaxSeconds = 59;

/// Returns the whole number in a field, as a double so that adding or subtracting 1 can't overflow.
double Number(const EditField& field) { return ToInt32(Val(field.Text())); }

/// Formats a number as the fields show it, with at least two digits.
std::string Digits(double number) { return Format(number, "00"); }

}  // namespace

EditField& winSet::eMin() const { return Find<EditField>("eMin"); }
EditField& winSet::eSec() const { return Find<EditField>("eSec"); }

void winSet::Layout() {
    Title("Set Timer");
    Frame(Frames::Sheet);
    MinSize(64, 64);
    Width(300);
    Height(74);
    MaximizeButton(false);
}

// Escape does nothing, because btnCancel isn't set as the window's cancel button.
void winSet::_CreateControls0() {
    AddButton("btnOK", "Set", 220, 31, 60, 20, 3, [this] { btnOK_Action(); }).Default(true);
    AddButton("btnCancel", "Cancel", 148, 31, 60, 20, 4, [this] { btnCancel_Action(); });

    auto& minuteArrows = AddControl<UpDownArrows>("aMin", 51, 31, 13, 23, 5);
    minuteArrows.AccessibleName("Min");
    minuteArrows.Up = [this] { aMin_Up(); };
    minuteArrows.Down = [this] { aMin_Down(); };

    auto& minutes = AddField("eMin", "01", 20, 31, 25, 6);
    minutes.KeyDown = [this](const std::string& key) { return eMin_KeyDown(key); };
    minutes.LostFocus = [this] { eMin_LostFocus(); };

    auto& seconds = AddField("eSec", "00", 73, 31, 25, 7);
    seconds.KeyDown = [this](const std::string& key) { return eSec_KeyDown(key); };
    seconds.LostFocus = [this] { eSec_LostFocus(); };

    auto& secondArrows = AddControl<UpDownArrows>("aSec", 104, 31, 13, 23, 8);
    secondArrows.AccessibleName("Sec");
    secondArrows.Up = [this] { aSec_Up(); };
    secondArrows.Down = [this] { aSec_Down(); };

    const auto label = [this](const char* name, const char* text, Int32 left, Int32 tabIndex, EditField& of) {
        auto& added = AddLabel(name, text, left, 14, 26, 16, tabIndex);
        added.TextFont("SmallSystem");
        added.LabelFor(of);
    };
    label("StaticText1", "Min", 20, 9, minutes);
    label("StaticText2", "Sec", 73, 10, seconds);
}

// The fields show the time set last, not the remaining time.
void winSet::Event_Open() {
    eMin().Text(Digits(winMain::Instance().SetMinutes));
    eSec().Text(Digits(winMain::Instance().SetSeconds));
}

// The numbers are taken from the fields unchecked.
void winSet::btnOK_Action() {
    auto& timer = winMain::Instance();
    timer.SetMinutes = ToInt32(Val(eMin().Text()));
    timer.SetSeconds = ToInt32(Val(eSec().Text()));
    timer.CurrentSeconds = ToInt32(timer.SetMinutes * 60.0 + timer.SetSeconds);
    timer.UpdateDisplay();
    timer.AnnounceState();
    Close();
}

void winSet::aMin_Up() {
    const double minutes = std::min<double>(Number(eMin()) + 1, kMaxMinutes);
    if (minutes == kMaxMinutes) eSec().Text("00");
    eMin().Text(Digits(minutes));
    eMin().SetFocus();
}

void winSet::aMin_Down() {
    const double minutes = Number(eMin()) - 1;
    if (minutes < 0) eSec().Text("00");
    eMin().Text(Digits(std::max(minutes, 0.0)));
    eMin().SetFocus();
}

void winSet::aSec_Up() {
    if (Val(eMin().Text()) >= kMaxMinutes) {
        eSec().Text("00");
        return;
    }
    double seconds = Number(eSec()) + 1;
    if (seconds > kMaxSeconds) {
        seconds = 0;
        eMin().Text(Digits(Val(eMin().Text()) + 1));
    }
    eSec().Text(Digits(seconds));
    eSec().SetFocus();
}

void winSet::aSec_Down() {
    double seconds = Number(eSec()) - 1;
    if (seconds < 0) {
        const double minutes = Val(eMin().Text());
        seconds = minutes > 0 ? kMaxSeconds : 0;
        if (minutes > 0) eMin().Text(Digits(minutes - 1));
    }
    eSec().Text(Digits(seconds));
    eSec().SetFocus();
}

bool winSet::eMin_KeyDown(const std::string& key) {
    const KeyVerdict verdict = JudgeKey(eMin(), key, kMaxMinutes);
    if (verdict == KeyVerdict::Refused && eMin().Text() == "60") eSec().Text("00");
    return verdict != KeyVerdict::ToField;
}

// While the minutes are 60, every key in the seconds field is consumed.
bool winSet::eSec_KeyDown(const std::string& key) {
    if (eMin().Text() == "60") {
        eSec().Text("00");
        return true;
    }
    return JudgeKey(eSec(), key, kMaxSeconds) != KeyVerdict::ToField;
}

void winSet::eMin_LostFocus() { eMin().Text(Digits(Val(eMin().Text()))); }

void winSet::eSec_LostFocus() { eSec().Text(Digits(Val(eSec().Text()))); }
