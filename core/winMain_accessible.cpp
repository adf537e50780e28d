#include <algorithm>
#include <utility>

#include "core/winMain.h"
#include "platform/Canvas.h"
#include "platform/Text.h"

namespace {

/// "1 minute", "2 minutes"; nothing for none.
std::string Count(Int32 number, const std::string& unit) {
    if (number == 0) return "";
    return Str(number) + " " + unit + (number == 1 ? "" : "s");
}

std::string Remaining(Int32 seconds) {
    const std::string parts[] = {Count(seconds / 60, "minute"), Count(seconds % 60, "second")};
    if (parts[0].empty() && parts[1].empty()) return "no time";
    return parts[0] + (parts[0].empty() || parts[1].empty() ? "" : " ") + parts[1];
}

}  // namespace

std::string winMain::InWords() const {
    if (IsDone) return kTimeUp;
    return std::string(IsRunning ? "Running" : "Stopped") + ", " + Remaining(std::max(CurrentSeconds, 0)) + " left";
}

void winMain::AnnounceState() { Find<Canvas>("cvTime").Announce(InWords()); }

// While it runs once a minute, since each tick would be too much talk. Nothing is said: whoever wants to know the time
// asks for it.
void winMain::RenewWords() {
    const Int32 told = IsRunning ? CurrentSeconds / 60 * 60 : CurrentSeconds;
    if (std::exchange(mToldSeconds, told) != told) Find<Canvas>("cvTime").DescriptionChanged();
}
