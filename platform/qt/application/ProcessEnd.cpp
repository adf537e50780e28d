#include "platform/qt/application/ProcessEnd.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <QtCore/QThread>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/qt/events/MainThread.h"

namespace {

std::string lineWithoutDisplay;
std::string messagesSoFar;

// Collects Qt's messages during start-up. If Qt aborts because there is no display, prints our line instead.
void MessageWhileStarting(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    messagesSoFar += qFormatLogMessage(type, context, text).toStdString() + '\n';
    if (type != QtFatalMsg) return;
    const bool lacksDisplay = messagesSoFar.find("connect to display") != messagesSoFar.npos ||  // X11
                              messagesSoFar.find("wl_display") != messagesSoFar.npos;            // Wayland
    std::fputs(lacksDisplay ? lineWithoutDisplay.c_str() : messagesSoFar.c_str(), stderr);
    std::_Exit(EXIT_FAILURE);
}

std::function<void()> onLostDisplay;
QtMessageHandler previousHandler = nullptr;

void SaveAndEnd() {
    if (!onLostDisplay) return;
    std::exchange(onLostDisplay, nullptr)();
    std::_Exit(EXIT_FAILURE);
}

// On X11 and on Wayland, Qt's warning is the only notice of a lost display that comes while Qt still works.
// The event loop is calling this function and can't be left any more, so the process ends here.
void WatchForLostDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    previousHandler(type, context, text);
    const bool isLost = text.contains(u"connection broke") || text.contains(u"connection experienced");
    if (!isLost || !qApp) return;  // when qApp is nil, the program has already saved
    if (QThread::currentThread() == qApp->thread()) return SaveAndEnd();
    // This is Qt's Wayland reader thread, which ends the process on return. So it sleeps during `save`.
    AfterThisEvent(*qApp, SaveAndEnd);
    constexpr unsigned long kLongestSave = 10;
    QThread::sleep(kLongestSave);
}

/// The event loop reads this eventfd. The signal handler only writes to it, which is async-signal-safe.
int eventForHandler = -1;

extern "C" void WakeEventLoop(int) {
    const int error = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(eventForHandler, &one, sizeof one);
    errno = error;
}

}  // namespace

std::unique_ptr<QApplication> MakeQApplication(char* program, const std::string& name) {
    static int count = 1;  // only argv[0], so that Qt parses no options
    static char* arguments[] = {program, nullptr};
    lineWithoutDisplay = name + ": there is no X11 or Wayland display to show a window on\n";
    const QtMessageHandler before = qInstallMessageHandler(MessageWhileStarting);
    auto application = std::make_unique<QApplication>(count, arguments);
    qInstallMessageHandler(before);
    std::fputs(messagesSoFar.c_str(), stderr);
    return application;
}

void OnLostDisplay(std::function<void()> save) {
    onLostDisplay = std::move(save);
    previousHandler = qInstallMessageHandler(WatchForLostDisplay);
}

void OnEndSignals(const std::function<void()>& asked) {
    eventForHandler = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto* const notifier = new QSocketNotifier(eventForHandler, QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [asked] {
        std::uint64_t count = 0;
        if (read(eventForHandler, &count, sizeof count) > 0) asked();
    });
    struct sigaction ours = {};
    ours.sa_handler = WakeEventLoop;
    ours.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN) continue;
        sigaction(signal, &ours, nullptr);
        const auto restore = [signal, before] { sigaction(signal, &before, nullptr); };
        QObject::connect(qApp, &QObject::destroyed, restore);
    }
    QObject::connect(qApp, &QObject::destroyed, [] { close(eventForHandler); });
}
