#pragma once

#include <string>

#include "platform/Graphics.h"
#include "platform/Ref.h"
#include "shell/InformationWindow.h"

/// The About window. It has a compact form without the credits.
class AboutWindow final : public InformationWindow {
  public:
    static AboutWindow& Instance() { return ImplicitInstance<AboutWindow>("AboutWindow.AboutWindow"); }

    /// Whether SetupWindow shows the credits.
    bool UseCredits = false;

    void AppIconCanvas_Paint(const Ref<Graphics>& g);
    void StatAppName_Open() { ChooseFont<StaticText>("StatAppName"); }
    void StatAppVersion_Open() { ChooseFont<StaticText>("StatAppVersion"); }
    void EditAppCredits_Open() { ChooseFont<StyledTextField>("EditAppCredits"); }
    void StatAppCopyright_Open() { ChooseFont<StaticText>("StatAppCopyright"); }
    bool RBIconCanvas_MouseDown(Int32 x, Int32 y);
    void RBIconCanvas_Paint(const Ref<Graphics>& g);
    /// Shows a text in the credits field. Its tags are applied if `markup` is true, else shown literally.
    void SetCreditsFieldText(const std::string& text, bool markup);

    using Window::Show;
    /// Fills and lays out the window again, even if it is open, and brings it to the front.
    void Show(bool useCredits);
    void SetupWindow();
    /// Returns the program's version in the form "1.2.3b (45)".
    static std::string VersionString();

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();
};
