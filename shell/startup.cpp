#include "shell/startup.h"

#include <memory>

#include "core/winMain.h"
#include "movie/FileTypes.h"
#include "platform/Application.h"
#include "shell/App.h"

namespace {

void _InitFileTypes() { FileTypes::_Initialize(); }

void _NewAppInstance() { RuntimeRegisterAppObject(std::make_unique<App>()); }

void _MakeDefaultView() { winMain::Instance(); }

void _Startup() {
    _InitFileTypes();
    _NewAppInstance();
    _MakeDefaultView();
}

}  // namespace

void _Main() {
    RunFrameworkInitialization(_Startup);
    RuntimeRun();
}
