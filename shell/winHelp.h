#pragma once

#include "shell/InformationWindow.h"

/// The Help window. It is filled by a text field with the user guide.
class winHelp final : public InformationWindow {
  public:
    static winHelp& Instance() { return ImplicitInstance<winHelp>("winHelp.winHelp"); }

    void EditField1_Open();

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();
};
