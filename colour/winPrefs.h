#pragma once

#include "platform/Color.h"
#include "shell/Dialog.h"

/// The Preferences dialog: a well for each of the timer window's four colours. A change shows on the clock at
/// once; Cancel undoes it. The colours are saved when the timer window closes, not here.
class winPrefs final : public Dialog {
  public:
    static winPrefs& Instance() { return ImplicitInstance<winPrefs>("winPrefs.winPrefs"); }

    // The timer window's colours as they were when the dialog opened.
    Color mBackground;
    Color mWedge;
    Color mFace;
    Color mFrame;

    void cBackground_ColorChange(Color) { TakeFrom("cBackground"); }
    void cFace_ColorChange(Color) { TakeFrom("cFace"); }
    void cWedge_ColorChange(Color) { TakeFrom("cWedge"); }
    void cFrame_ColorChange(Color) { TakeFrom("cFrame"); }
    void bOK_Action() { Close(); }
    void bCancel_Action();
    void bDefaults_Action();
    void Event_Open() override;
    /// Brings the wells in line with the timer window.
    void SetButtons();

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();
    /// Gives the clock the colour of a well.
    void TakeFrom(const std::string& well);
};
