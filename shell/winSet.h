#pragma once

#include <string>

#include "shell/Dialog.h"

/// The Set Timer dialog: minutes and seconds, each a text field with arrows. The handlers read the numbers out
/// of the fields. Of the timer it touches only the set time and the remaining one.
class winSet final : public Dialog {
  public:
    static winSet& Instance() { return ImplicitInstance<winSet>("winSet.winSet"); }

    void btnOK_Action();
    void btnCancel_Action() { Close(); }
    void aMin_Up();
    void aMin_Down();
    bool eMin_KeyDown(const std::string& key);
    void eMin_LostFocus();
    bool eSec_KeyDown(const std::string& key);
    void eSec_LostFocus();
    void aSec_Up();
    void aSec_Down();
    void Event_Open() override;

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();

    EditField& eMin() const;
    EditField& eSec() const;
};
