#include "platform/qt/application/LostDisplay.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <cstdlib>
#include <utility>

namespace {

std::function<void()> saveOnce;
QtMessageHandler print = nullptr;

// A warning is all that is heard of it while the toolkit is still whole, on X11 and on Wayland.
void Hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    print(type, context, text);
    const bool isLost = text.contains(QStringLiteral("connection broke"));
    if (const auto save = isLost ? std::exchange(saveOnce, nullptr) : nullptr) save();
}

// What the process has of its own would be taken apart under the event loop, which is still running.
void EndAtOnce() {
    if (QCoreApplication::instance()) std::_Exit(EXIT_FAILURE);
}

}  // namespace

void OnLostDisplay(std::function<void()> save) {
    saveOnce = std::move(save);
    print = qInstallMessageHandler(Hear);
    std::atexit(EndAtOnce);
}
