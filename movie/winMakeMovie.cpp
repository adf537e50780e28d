#include "movie/winMakeMovie.h"

#include "core/winMain.h"
#include "platform/Text.h"
#include "platform/Thread.h"
#include "platform/Timer.h"

void winMakeMovie::Layout() {
    Title("Create Movie");
    Frame(Frames::Sheet);
    MinSize(64, 64);
    Width(400);
    Height(320);
    CloseButton(false);
    MinimizeButton(false);
    MaximizeButton(false);
    Resizeable(false);
}

void winMakeMovie::_CreateControls0() {
    auto& group = AddControl<GroupBox>("GroupBox1", 20, 14, 360, 254, 0);
    group.Caption("Create Movie - Settings");

    const auto inGroup = [](auto& control) -> auto& {
        control.InitialParent("GroupBox1");
        return control;
    };
    const auto label = [&](const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                           Int32 tabIndex) -> StaticText& {
        return inGroup(AddLabel(name, text, left, top, width, 20, tabIndex));
    };
    const auto field = [&](const std::string& name, const std::string& text, Int32 left, Int32 top, Int32 width,
                           Int32 tabIndex, void (winMakeMovie::*textChange)()) -> EditField& {
        auto& added = inGroup(AddField(name, text, left, top, width, tabIndex));
        added.TextChange = [this, textChange] { (this->*textChange)(); };
        return added;
    };
    const auto box = [&](const std::string& name, const std::string& caption, Int32 top, Int32 tabIndex, bool on) {
        auto& added = inGroup(AddControl<CheckBox>(name, 34, top, 246, 20, tabIndex));
        added.Caption(caption);
        added.Value(on);
    };

    label("StaticText1", "Start Time:", 34, 46, 79, 0);
    field("eStart", "3600", 125, 45, 44, 2, &winMakeMovie::eStart_TextChange).KeyDown = [this](const std::string& key) {
        return eStart_KeyDown(key);
    };
    label("StaticText2", "Seconds (1 - 3600)", 176, 46, 128, 3);
    label("StaticText3", "Frame Size:", 34, 78, 79, 4);
    field("eSizeX", "320", 125, 77, 44, 5, &winMakeMovie::eSizeX_TextChange);
    label("StaticText4", "x", 173, 77, 18, 6).TextAlign(TextAlignment::Centre);
    field("eSizeY", "240", 195, 77, 42, 7, &winMakeMovie::eSizeY_TextChange);
    label("StaticText7", "Pixels", 244, 78, 57, 8);
    label("StaticText8", "Clock Size:", 34, 112, 79, 9);
    field("eScale", "90", 125, 110, 44, 10, &winMakeMovie::eScale_TextChange);
    label("StaticText9", "% of Frame Size (10 - 100)", 176, 111, 192, 11);
    label("StaticText5", "Frame Rate:", 34, 146, 79, 12);
    field("eFrameRate", "1", 125, 144, 44, 13, &winMakeMovie::eFrameRate_TextChange);
    label("StaticText6", "Frames per second (0.1 - 30)", 176, 145, 192, 14);
    box("CheckBox1", "Show Compression Settings", 177, 15, true);
    box("CheckBox2", "Open Movie upon Completion", 209, 16, false);
    auto& size = label("lSize", "Uncompressed movie file size: ", 34, 241, 334, 17);
    size.TextFont("SmallSystem");
    size.TextAlign(TextAlignment::Right);

    for (const auto& [text, of] : {std::pair("StaticText1", "eStart"),
                                   {"StaticText3", "eSizeX"},
                                   {"StaticText8", "eScale"},
                                   {"StaticText5", "eFrameRate"}})
        Find<StaticText>(text).LabelFor(Find<EditField>(of));
    Find<EditField>("eSizeX").AccessibleName("Frame width");
    Find<EditField>("eSizeY").AccessibleName("Frame height");

    auto& progress = AddControl<ProgressBar>("ProgressBar1", 20, 280, 173, 20, 1);
    progress.AccessibleName("Progress");
    progress.Maximum(winMain::kSecondsPerTurn);
    progress.Visible(false);

    AddButton("bCancel", "Cancel", 203, 280, 80, 20, 1, [this] { bCancel_Action(); }).Cancel(true);
    AddButton("bStart", "Start", 296, 280, 80, 20, 2, [this] { bStart_Action(); }).Default(true);

    AddControl<Thread>("thr").RunEvent = [this] { thr_Run(); };

    auto& settled = AddControl<Timer>("Timer1");
    settled.Period(100);
    settled.Action = [this] { Timer1_Action(); };
}

void winMakeMovie::Event_Open() { CalculateSize(); }

bool winMakeMovie::eStart_KeyDown(const std::string& key) {
    return JudgeKey(Find<EditField>("eStart"), key, winMain::kSecondsPerTurn) != KeyVerdict::ToField;
}

double winMakeMovie::Number(const char* field) const { return Val(Find<EditField>(field).Text()); }

// Uses the fields as they are, without the bounds that Start applies, and ignores the movie's last frame.
void winMakeMovie::CalculateSize() {
    const double megabytes =
        3 * Number("eStart") * Number("eSizeX") * Number("eSizeY") * Number("eFrameRate") / 1024 / 1024;
    Find<StaticText>("lSize").Text("Uncompressed movie file size: " + Format(megabytes, "###,##0.0") + "MB");
}
