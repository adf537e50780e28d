#pragma once

#include "platform/Color.h"
#include "shell/Dialog.h"

/// The Preferences dialog, with a colour well for each of the timer window's four colours. Changes apply to
/// the clock at once, and Cancel undoes them. The colours are saved when the timer window closes.
class winPrefs final : public Dialog {
  public:
    static winPrefs& Instance() { return ImplicitInstance<winPrefs>("winPrefs.winPrefs"); }

    // The timer window's colours when the dialog opened.
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
    /// Sets the wells to the timer window's colours.
    void SetButtons();

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();
    /// Sets the clock's colour to that of the named well.
    void TakeFrom(const std::string& well);
};
