#include "platform/Application.h"
#include "shell/startup.h"

int main(int argc, char** argv) {
    RuntimeInit(argc, argv, "Dwindledial", "org.example.dwindledial");
    _Main();
    return RuntimeExit();
}
