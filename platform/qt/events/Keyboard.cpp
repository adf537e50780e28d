#include "platform/Application.h"

#include <QtGui/QGuiApplication>

namespace Keyboard {

bool AsyncCommandKey() { return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier); }

bool AsyncOptionKey() {
    return (QGuiApplication::queryKeyboardModifiers() & (Qt::AltModifier | Qt::ShiftModifier)) != Qt::NoModifier;
}

}  // namespace Keyboard
