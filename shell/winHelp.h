#pragma once

#include "shell/InformationWindow.h"

/// The Help window: the user guide, in a field that fills the window.
class winHelp final : public InformationWindow {
  public:
    static winHelp& Instance() { return ImplicitInstance<winHelp>("winHelp.winHelp"); }

    void EditField1_Open();

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();
};
