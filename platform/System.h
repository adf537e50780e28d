#pragma once

namespace System::Quicktime {

/// Whether movies can be written on this machine. Any thread.
bool Installed();

}  // namespace System::Quicktime
