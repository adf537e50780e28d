#include "shell/App.h"

App& App::Instance() { return static_cast<App&>(*Application::Registered()); }

void App::Event_Open() { AutoQuit(true); }
