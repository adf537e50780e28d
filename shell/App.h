#pragma once

#include "platform/Application.h"
#include "shell/build_values.h"

/// The application object. It handles no command; every one is the timer window's.
class App final : public Application {
  public:
    static App& Instance() { return static_cast<App&>(*Application::Registered()); }

    App() {
        MajorVersion(build::kMajorVersion);
        MinorVersion(build::kMinorVersion);
        BugVersion(build::kBugVersion);
        StageCode(build::kStageCode);
        NonReleaseVersion(build::kNonReleaseVersion);
    }

    void Event_Open() override { AutoQuit(true); }
};
