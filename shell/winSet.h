#pragma once

#include <string>

#include "shell/Dialog.h"

/// The Set Timer dialog, with a text field and arrows each for minutes and seconds. Only the fields store the
/// numbers. Of the timer's fields, OK changes only SetMinutes, SetSeconds and CurrentSeconds.
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
