#pragma once

#include <cstdlib>
#include <memory>

#include "core/winMain.h"
#include "movie/FileTypes.h"
#include "platform/Application.h"
#include "shell/App.h"
#include "tests/support/RecordingHost.h"

/// Starts the program without a desktop, for a benchmark: file types, application object and timer window.
class ProgramOffscreen {
  public:
    explicit ProgramOffscreen(char* program) : host(BringUp(program)) {
        FileTypes::_Initialize();
        RuntimeRegisterAppObject(std::make_unique<App>());
        winMain::Instance();
    }
    ~ProgramOffscreen() { RuntimeExit(); }
    ProgramOffscreen(const ProgramOffscreen&) = delete;
    ProgramOffscreen& operator=(const ProgramOffscreen&) = delete;

    RecordingHost& host;

  private:
    static RecordingHost& BringUp(char* program) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        RuntimeInit(program, "Dwindledial", build::kDesktopId, nullptr);
        return RecordingHost::InstallNew();
    }
};
