#include "core/winMain.h"
#include "movie/winMakeMovie.h"
#include "platform/EditableMovie.h"
#include "platform/Host.h"

bool winMain::_FileCreateMovie_Action() {
    if (!System::Quicktime::Installed()) {
        MsgBox("QuickTime needs to be installed to create movies.");
        return true;
    }
    ShowDialog(winMakeMovie::Instance());
    return true;
}
