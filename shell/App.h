#pragma once

#include "platform/Application.h"

/// The application object. It handles no command; every one is the timer window's.
class App final : public Application {
  public:
    static App& Instance();

    App();

    void Event_Open() override;
};
