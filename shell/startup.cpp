#include "shell/startup.h"

#include <memory>

#include "core/winMain.h"
#include "movie/FileTypes.h"
#include "platform/Application.h"
#include "shell/App.h"

namespace {

void _InitFileTypes() { FileTypes::_Initialize(); }

void _NewAppInstance() { RuntimeRegisterAppObject(std::make_unique<App>()); }

// Every handler belongs to the timer window.
void _ApplicationAddMenuHandlers() {}

void _MakeDefaultView() { winMain::Instance(); }

int _Startup() {
    _InitFileTypes();
    _NewAppInstance();
    _ApplicationAddMenuHandlers();
    _MakeDefaultView();
    return 0;
}

}  // namespace

void _Main() {
    RunFrameworkInitialization(_Startup);
    RuntimeRun();
}
