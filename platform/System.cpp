#include "platform/System.h"

#include "platform/MovieLibrary.h"

bool System::Quicktime::Installed() { return MovieLibrary::Installed().CanWrite(); }
