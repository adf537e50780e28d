#include <gmock/gmock.h>

#include <cstdlib>

#include "platform/Application.h"
#include "shell/build_values.h"
#include "tests/support/RecordingHost.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    RuntimeInit(argv[0], "Dwindledial", build::kDesktopId, nullptr);
    RecordingHost::InstallNew();
    const int result = RUN_ALL_TESTS();
    RuntimeExit();
    return result;
}
