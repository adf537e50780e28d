#pragma once

#include "platform/Application.h"
#include "shell/build_values.h"

/// The application object. It handles no commands: the timer window handles them all.
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
