#include "shell/AboutWindow.h"

#include "platform/Canvas.h"
#include "platform/Host.h"
#include "platform/Picture.h"
#include "platform/Text.h"
#include "shell/App.h"
#include "shell/resources.h"

namespace {

constexpr Int32 kIconSize = 64;
constexpr Int32 kBadgeWidth = 216;
constexpr Int32 kBadgeHeight = 30;

// Carriage returns separate lines.
constexpr const char* kRights = "Copyright © 2026 The Dwindledial maintainers\rReleased under the MIT License";

/// Returns the credits, in the mark-up of ParseMarkup.
std::string Credits() {
    const std::string indent = "      ";
    return "<b>Author:</b>\r" + indent + "Tolvar Quennick\r" + indent + build::kEmail + "\r" + indent +
           build::kWebsite +
           "\r\r"
           "<b>Disclaimer:</b>\r"
           "<font size=\"10\">"
           "THE SOFTWARE IS PROVIDED \"AS IS\", WITHOUT WARRANTY OF ANY KIND, EXPRESS OR IMPLIED, INCLUDING BUT NOT "
           "LIMITED TO THE WARRANTIES OF MERCHANTABILITY, FITNESS FOR A PARTICULAR PURPOSE AND NONINFRINGEMENT. IN NO "
           "EVENT SHALL THE AUTHORS OR COPYRIGHT HOLDERS BE LIABLE FOR ANY CLAIM, DAMAGES OR OTHER LIABILITY, WHETHER "
           "IN AN ACTION OF CONTRACT, TORT OR OTHERWISE, ARISING FROM, OUT OF OR IN CONNECTION WITH THE SOFTWARE OR "
           "THE USE OR OTHER DEALINGS IN THE SOFTWARE."
           "</font>";
}

}  // namespace

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

void AboutWindow::_CreateControls0() {
    auto& icon = AddControl<Canvas>("AppIconCanvas", 110, 8, kIconSize, kIconSize, 0);
    icon.Paint = [this](const Ref<Graphics>& g) { AppIconCanvas_Paint(g); };

    const auto label = [this](const char* control, const char* text, Int32 top, Int32 height, Int32 tabIndex,
                              Int32 textSize) -> StaticText& {
        auto& added = AddControl<StaticText>(control, 20, top, 244, height, tabIndex);
        added.Text(text);
        added.TextSize(textSize);
        added.TextAlign(TextAlignment::Centre);
        return added;
    };
    auto& name = label("StatAppName", "kAppName", 86, 16, 1, 14);
    name.Bold(true);
    name.Open = [this] { StatAppName_Open(); };
    label("StatAppVersion", "kAppVersion", 112, 12, 2, 10).Open = [this] { StatAppVersion_Open(); };

    auto& credits = AddTextView("EditAppCredits", 0, 132, 284, 140, 3);
    credits.Text("Plain Text: kAppCredits\rHTML Text: kAppCreditsHTML");
    credits.Open = [this] { EditAppCredits_Open(); };

    label("StatAppCopyright", "kAppCopyright", 280, 32, 4, 10).Open = [this] { StatAppCopyright_Open(); };

    auto& badge = AddControl<Canvas>("RBIconCanvas", 34, 324, kBadgeWidth, kBadgeHeight, 5);
    badge.Paint = [this](const Ref<Graphics>& g) { RBIconCanvas_Paint(g); };
    badge.MouseDown = [this](Int32 x, Int32 y) { return RBIconCanvas_MouseDown(x, y); };
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
    ShowURL(build::kToolkitWebsite);
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
    Find<StaticText>("StatAppCopyright").Text(kRights);
    if (UseCredits) {
        SetCreditsFieldText(Credits(), true);
        Find<StaticText>("StatAppCopyright").Top(280);
        Find<StyledTextField>("EditAppCredits").Visible(true);
        Height(366);
        Find<Canvas>("RBIconCanvas").Top(324);
    } else {
        Find<StyledTextField>("EditAppCredits").Visible(false);
        Find<StaticText>("StatAppCopyright").Top(132);
        Height(218);
        Find<Canvas>("RBIconCanvas").Top(176);
    }
}

std::string AboutWindow::VersionString() {
    constexpr const char* kStages[] = {" (Dev. ", "a (", "b (", " ("};
    const App& app = App::Instance();
    const Int32 stage = app.StageCode();
    std::string number = Str(app.MajorVersion()) + "." + Str(app.MinorVersion()) + "." + Str(app.BugVersion());
    if (stage < 0 || stage >= std::ssize(kStages)) return number;
    return number + kStages[stage] + Str(app.NonReleaseVersion()) + ")";
}
