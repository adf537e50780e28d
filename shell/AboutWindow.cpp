#include "shell/AboutWindow.h"

#include "platform/Canvas.h"
#include "platform/Controls.h"
#include "platform/Host.h"
#include "platform/Picture.h"
#include "platform/StyledTextField.h"
#include "platform/Text.h"
#include "platform/targets.h"
#include "shell/App.h"
#include "shell/about_text.h"
#include "shell/addresses.h"
#include "shell/images.h"
#include "shell/markup.h"

namespace {

constexpr Int32 kIconSize = 64;
constexpr Int32 kBadgeWidth = 216;
constexpr Int32 kBadgeHeight = 30;
/// The credits and their margin, by which the compact form is shorter.
constexpr Int32 kCreditsExtent = 148;

}  // namespace

AboutWindow& AboutWindow::Instance() { return ImplicitInstance<AboutWindow>("AboutWindow.AboutWindow"); }

void AboutWindow::Layout() {
    Title("");
    Placement(Placements::MainScreen);
    MinSize(64, 64);
    Width(284);
    Height(366);
    Resizeable(false);
    MinimizeButton(false);
    MaximizeButton(false);
}

void AboutWindow::CreateControls() { _CreateControls0(); }

void AboutWindow::_CreateControls0() {
    auto& icon = AddControl<Canvas>("AppIconCanvas", 110, 8, kIconSize, kIconSize, 0);
    icon.Paint = [this](const Ref<Graphics>& g) { AppIconCanvas_Paint(g); };

    auto& name = AddControl<StaticText>("StatAppName", 20, 86, 244, 16, 1);
    name.Text("kAppName");
    name.Bold(true);
    name.TextSize(14);
    name.TextAlign(TextAlignment::Centre);
    name.Open = [this] { StatAppName_Open(); };

    auto& version = AddControl<StaticText>("StatAppVersion", 20, 112, 244, 12, 2);
    version.Text("kAppVersion");
    version.TextSize(10);
    version.TextAlign(TextAlignment::Centre);
    version.Open = [this] { StatAppVersion_Open(); };

    auto& credits = AddControl<StyledTextField>("EditAppCredits", 0, 132, 284, 140, 3);
    credits.LockLeft(true);
    credits.LockTop(true);
    credits.LockRight(true);
    credits.LockBottom(true);
    credits.TextSize(12);
    credits.Text("Plain Text: kAppCredits\rHTML Text: kAppCreditsHTML");
    credits.Open = [this] { EditAppCredits_Open(); };

    auto& rights = AddControl<StaticText>("StatAppCopyright", 20, 280, 244, 32, 4);
    rights.Text("kAppCopyright");
    rights.TextSize(10);
    rights.TextAlign(TextAlignment::Centre);
    rights.Open = [this] { StatAppCopyright_Open(); };

    auto& badge = AddControl<Canvas>("RBIconCanvas", 34, 324, kBadgeWidth, kBadgeHeight, 5);
    badge.Paint = [this](const Ref<Graphics>& g) { RBIconCanvas_Paint(g); };
    badge.MouseDown = [this](Int32 x, Int32 y) { return RBIconCanvas_MouseDown(x, y); };
}

void AboutWindow::StatAppName_Open() {
    if constexpr (targets::kGenevaFont) Find<StaticText>("StatAppName").TextFont("Geneva");
}

void AboutWindow::StatAppVersion_Open() {
    if constexpr (targets::kGenevaFont) Find<StaticText>("StatAppVersion").TextFont("Geneva");
}

void AboutWindow::EditAppCredits_Open() {
    if constexpr (targets::kGenevaFont) Find<StyledTextField>("EditAppCredits").TextFont("Geneva");
}

void AboutWindow::StatAppCopyright_Open() {
    if constexpr (targets::kGenevaFont) Find<StaticText>("StatAppCopyright").TextFont("Geneva");
}

void AboutWindow::AppIconCanvas_Paint(const Ref<Graphics>& g) {
    const Ref<Picture> icon = AboutIcon();
    ApplyMask(icon, AboutMask());
    g->DrawPicture(icon, 0, 0, kIconSize, kIconSize, 0, 0, icon->Width(), icon->Height());
}

void AboutWindow::RBIconCanvas_Paint(const Ref<Graphics>& g) {
    const Ref<Picture> badge = MwRbHzMd();
    ApplyMask(badge, MwRbHzMdMask());
    g->DrawPicture(badge, 0, 0, kBadgeWidth, kBadgeHeight, 0, 0, kBadgeWidth, kBadgeHeight);
}

bool AboutWindow::RBIconCanvas_MouseDown(Int32, Int32) {
    ShowURL(addresses::kToolkit);
    return false;
}

void AboutWindow::SetCreditsFieldText(const std::string& text, bool markup) {
    auto& credits = Find<StyledTextField>("EditAppCredits");
    credits.Text(text);
    if (markup) credits.StyledText(ParseMarkup(text, credits.TextSize()));
}

void AboutWindow::Show(bool useCredits) {
    UseCredits = useCredits;
    SetupWindow();
    Show();
}

void AboutWindow::SetupWindow() {
    Find<StaticText>("StatAppName").Text("Dwindledial");
    Find<StaticText>("StatAppVersion").Text("Version " + VersionString());
    Find<StaticText>("StatAppCopyright").Text(about_text::kRights);
    if (UseCredits) SetCreditsFieldText(about_text::Credits(), true);
    const Int32 extent = UseCredits ? kCreditsExtent : 0;
    Find<StaticText>("StatAppCopyright").Top(132 + extent);
    Find<StyledTextField>("EditAppCredits").Visible(UseCredits);
    Height(218 + extent);
    Find<Canvas>("RBIconCanvas").Top(176 + extent);
}

std::string AboutWindow::VersionString() {
    const App& app = App::Instance();
    std::string number = Str(app.MajorVersion()) + "." + Str(app.MinorVersion()) + "." + Str(app.BugVersion());
    const std::string build = Str(app.NonReleaseVersion()) + ")";
    switch (app.StageCode()) {
        case Application::Development:
            return number + " (Dev. " + build;
        case Application::Alpha:
            return number + "a (" + build;
        case Application::Beta:
            return number + "b (" + build;
        case Application::Final:
            return number + " (" + build;
        default:
            return number;
    }
}

bool AboutWindow::Event_KeyDown(const std::string& key) {
    if (key != Chr(27)) return false;
    Close();
    return true;
}
