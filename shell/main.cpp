#include "platform/Application.h"
#include "shell/desktop_id.h"
#include "shell/resources.h"
#include "shell/startup.h"

int main(int argc, char** argv) {
    RuntimeInit(argc, argv, "Dwindledial", kDesktopId, Resource("Alert.wav"));
    _Main();
    return RuntimeExit();
}
