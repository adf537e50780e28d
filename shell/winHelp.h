#pragma once

#include <string>

#include "platform/Window.h"

/// The Help window: the user guide, in a field that fills the window.
class winHelp final : public Window {
  public:
    static winHelp& Instance();

    void EditField1_Open();
    /// Escape closes the window.
    bool Event_KeyDown(const std::string& key) override;

  private:
    void Layout() override;
    void CreateControls() override;
    void _CreateControls0();
};
