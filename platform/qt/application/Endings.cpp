#include "platform/qt/application/Endings.h"

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

namespace {

std::string lineWithoutDisplay;
std::string saidBefore;

// The toolkit says in several lines that there is no display, then aborts. What else it says waits until that is known.
void HearWhileStarting(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    saidBefore += qFormatLogMessage(type, context, text).toStdString() + '\n';
    if (type != QtFatalMsg) return;
    const bool lacksDisplay = saidBefore.find("connect to display") != saidBefore.npos ||  // X11
                              saidBefore.find("wl_display") != saidBefore.npos;            // Wayland
    std::fputs(lacksDisplay ? lineWithoutDisplay.c_str() : saidBefore.c_str(), stderr);
    std::_Exit(EXIT_FAILURE);
}

std::function<void()> saveOnce;
QtMessageHandler print = nullptr;

void SaveAndEnd() {
    if (!saveOnce) return;
    std::exchange(saveOnce, nullptr)();
    std::_Exit(EXIT_FAILURE);
}

// A warning is all that is heard of it while the toolkit is still whole, on X11 and on Wayland. The process ends here,
// since the event loop, from which this comes, can't be left any more.
void HearOfLostDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    print(type, context, text);
    const bool isLost = text.contains(u"connection broke") || text.contains(u"connection experienced");
    if (!isLost || !qApp) return;  // at the program's own end there is nothing left to save
    if (QThread::currentThread() == qApp->thread()) return SaveAndEnd();
    // The thread that reads from Wayland hears of it as well, and would end the process when this returns.
    QMetaObject::invokeMethod(qApp, SaveAndEnd, Qt::QueuedConnection);
    constexpr unsigned long kLongestSave = 10;
    QThread::sleep(kLongestSave);
}

/// Where the signal handler, which may do next to nothing, tells the event loop.
int eventForHandler = -1;

extern "C" void TellEventLoop(int) {
    const int error = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(eventForHandler, &one, sizeof one);
    errno = error;
}

}  // namespace

std::unique_ptr<QApplication> MakeToolkit(char* program, const std::string& name) {
    static int count = 1;  // the toolkit's own options are not taken
    static char* arguments[] = {program, nullptr};
    lineWithoutDisplay = name + ": there is no X11 or Wayland display to show a window on\n";
    const QtMessageHandler before = qInstallMessageHandler(HearWhileStarting);
    auto toolkit = std::make_unique<QApplication>(count, arguments);
    qInstallMessageHandler(before);
    std::fputs(saidBefore.c_str(), stderr);
    return toolkit;
}

void OnLostDisplay(std::function<void()> save) {
    saveOnce = std::move(save);
    print = qInstallMessageHandler(HearOfLostDisplay);
}

void OnEndSignals(const std::function<void()>& asked) {
    eventForHandler = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto* const notifier = new QSocketNotifier(eventForHandler, QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [asked] {
        std::uint64_t count = 0;
        if (read(eventForHandler, &count, sizeof count) > 0) asked();
    });
    struct sigaction ours = {};
    ours.sa_handler = TellEventLoop;
    ours.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN) continue;
        sigaction(signal, &ours, nullptr);
        QObject::connect(qApp, &QObject::destroyed, [signal, before] { sigaction(signal, &before, nullptr); });
    }
    QObject::connect(qApp, &QObject::destroyed, [] { close(eventForHandler); });
}
