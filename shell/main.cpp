#include "platform/Application.h"
#include "shell/desktop_id.h"
#include "shell/resources.h"
#include "shell/startup.h"

int main(int, char** argv) {
    RuntimeInit(argv[0], "Dwindledial", kDesktopId, Resource("Alert.wav"));
    _Main();
    return RuntimeExit();
}
