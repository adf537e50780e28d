#include "shell/App.h"

#include "shell/version.h"

App& App::Instance() { return static_cast<App&>(*Application::Registered()); }

App::App() {
    MajorVersion(version::kMajor);
    MinorVersion(version::kMinor);
    BugVersion(version::kBug);
    StageCode(version::kStageCode);
    NonReleaseVersion(version::kNonRelease);
}

void App::Event_Open() { AutoQuit(true); }
