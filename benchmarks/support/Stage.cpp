#include "benchmarks/support/Stage.h"

#include <cstdlib>
#include <memory>

#include "core/winMain.h"
#include "movie/FileTypes.h"
#include "platform/Application.h"
#include "shell/App.h"
#include "shell/desktop_id.h"
#include "tests/support/RecordingHost.h"

Stage::Stage(int& argc, char** argv) : host(BringUp(argc, argv)) {
    FileTypes::_Initialize();
    RuntimeRegisterAppObject(std::make_unique<App>());
    winMain::Instance();
}

Stage::~Stage() { RuntimeExit(); }

RecordingHost& Stage::BringUp(int& argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    RuntimeInit(argc, argv, "Dwindledial", kDesktopId, nullptr);
    return RecordingHost::InstallNew();
}
