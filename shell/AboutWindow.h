#pragma once

#include <string>

#include "platform/Graphics.h"
#include "platform/Ref.h"
#include "shell/InformationWindow.h"

/// The About window, with credits or, in a compact form, without them.
class AboutWindow final : public InformationWindow {
  public:
    static AboutWindow& Instance() { return ImplicitInstance<AboutWindow>("AboutWindow.AboutWindow"); }

    /// Whether the credits show. SetupWindow reads it.
    bool UseCredits = false;

    void AppIconCanvas_Paint(const Ref<Graphics>& g);
    void StatAppName_Open() { ChooseFont<StaticText>("StatAppName"); }
    void StatAppVersion_Open() { ChooseFont<StaticText>("StatAppVersion"); }
    void EditAppCredits_Open() { ChooseFont<StyledTextField>("EditAppCredits"); }
    void StatAppCopyright_Open() { ChooseFont<StaticText>("StatAppCopyright"); }
    bool RBIconCanvas_MouseDown(Int32 x, Int32 y);
    void RBIconCanvas_Paint(const Ref<Graphics>& g);
    /// Shows a text in the credits field: as mark-up, or as it stands.
    void SetCreditsFieldText(const std::string& text, bool markup);

    using Window::Show;
    /// Fills and arranges the window anew, also when it is open, and brings it forward.
    void Show(bool useCredits);
    void SetupWindow();
    /// The program's version as the user reads it, "1.2.3b (45)".
    static std::string VersionString();

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();
};
