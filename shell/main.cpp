#include <memory>

#include "core/winMain.h"
#include "movie/FileTypes.h"
#include "shell/App.h"
#include "shell/resources.h"

namespace {

void _InitFileTypes() { FileTypes::_Initialize(); }

void _NewAppInstance() { RuntimeRegisterAppObject(std::make_unique<App>()); }

// Empty, because the timer window handles every command.
void _ApplicationAddMenuHandlers() {}

void _MakeDefaultView() { winMain::Instance(); }

int _Startup() {
    _InitFileTypes();
    _NewAppInstance();
    _ApplicationAddMenuHandlers();
    _MakeDefaultView();
    return 0;
}

void _Main() {
    RunFrameworkInitialization(_Startup);
    RuntimeRun();
}

}  // namespace

int main(int, char** argv) {
    RuntimeInit(argv[0], "Dwindledial", build::kDesktopId, Resource("Alert.wav"));
    _Main();
    return RuntimeExit();
}
