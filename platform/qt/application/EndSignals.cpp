#include "platform/qt/application/EndSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <utility>

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// Where the handler, which may do next to nothing, leaves word.
int eventForHandler = -1;

extern "C" void LeaveWord(int) {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(eventForHandler, &one, sizeof one);
}

void Handle(void (*handler)(int)) {
    for (const int signal : kSignals)
        std::signal(signal, handler);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> asked)
    : event_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), notifier_(event_, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this, asked = std::move(asked)] {
        std::uint64_t count = 0;
        if (read(event_, &count, sizeof count) > 0) asked();
    });
    eventForHandler = event_;
    Handle(LeaveWord);
}

EndSignals::~EndSignals() {
    Handle(SIG_DFL);
    close(event_);
}
