#include "platform/Application.h"
#include "shell/resources.h"
#include "shell/startup.h"

int main(int argc, char** argv) {
    RuntimeInit(argc, argv, "Dwindledial", "org.example.dwindledial", Resource("Alert.wav"));
    _Main();
    return RuntimeExit();
}
