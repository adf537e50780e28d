#include "platform/qt/events/Keys.h"

#include <QtGui/QGuiApplication>

#include "platform/Application.h"
#include "platform/Text.h"

namespace {

Int32 ControlCode(int key) {
    switch (key) {
        case Qt::Key_Return:
            return 13;
        case Qt::Key_Enter:
            return 3;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return 9;
        case Qt::Key_Delete:
            return 127;
        case Qt::Key_Left:
            return 28;
        case Qt::Key_Right:
            return 29;
        case Qt::Key_Up:
            return 30;
        case Qt::Key_Down:
            return 31;
        default:
            return 0;
    }
}

struct Release {
    int key = 0;
    quint64 timestamp = 0;  // 0 for events that come from no device
};
Release lastRelease;

}  // namespace

bool IsRepeat(const QKeyEvent& press) {
    const bool isSameMoment = press.timestamp() != 0 && press.timestamp() == lastRelease.timestamp;
    return press.isAutoRepeat() || (isSameMoment && press.key() == lastRelease.key);
}

void RememberRelease(const QKeyEvent& release) { lastRelease = {release.key(), release.timestamp()}; }

std::string KeyText(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return "";
    if (const Int32 code = ControlCode(event.key())) return Chr(code);
    const QList<uint> characters = event.text().toUcs4();
    return characters.isEmpty() ? "" : Chr(static_cast<Int32>(characters.front()));
}

namespace Keyboard {

bool AsyncCommandKey() { return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier); }

bool AsyncOptionKey() {
    return (QGuiApplication::queryKeyboardModifiers() & (Qt::AltModifier | Qt::ShiftModifier)) != Qt::NoModifier;
}

}  // namespace Keyboard
