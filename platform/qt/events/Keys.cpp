#include "platform/qt/events/Keys.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGroupBox>

#include "platform/Application.h"
#include "platform/Control.h"
#include "platform/Text.h"

namespace {

Int32 ControlCode(int key) {
    switch (key) {
        case Qt::Key_Return:
            return Keyboard::kReturn;
        case Qt::Key_Enter:
            return Keyboard::kEnter;
        case Qt::Key_Escape:
            return Keyboard::kEscape;
        case Qt::Key_Backspace:
            return Keyboard::kBackspace;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return Keyboard::kTab;
        case Qt::Key_Delete:
            return Keyboard::kDelete;
        case Qt::Key_Left:
            return Keyboard::kLeft;
        case Qt::Key_Right:
            return Keyboard::kRight;
        case Qt::Key_Up:
            return Keyboard::kUp;
        case Qt::Key_Down:
            return Keyboard::kDown;
        default:
            return 0;
    }
}

bool IsModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R);
}

struct Release {
    int key = 0;
    quint64 timestamp = 0;  // 0 for events that come from no device
};
Release lastRelease;

class ReturnForWindows final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        if (!qobject_cast<QAbstractButton*>(receiver) && !qobject_cast<QComboBox*>(receiver) &&
            !qobject_cast<QGroupBox*>(receiver))
            return false;
        event->ignore();
        return true;
    }
};

}  // namespace

std::optional<std::string> KeyText(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return std::nullopt;
    if (IsModifier(event.key())) return std::nullopt;
    if (const Int32 code = ControlCode(event.key())) return Chr(code);
    const QList<uint> characters = event.text().toUcs4();
    return characters.isEmpty() ? "" : Chr(static_cast<Int32>(characters.front()));
}

bool IsRepeat(const QKeyEvent& press) {
    const bool isSameMoment = press.timestamp() != 0 && press.timestamp() == lastRelease.timestamp;
    return press.isAutoRepeat() || (isSameMoment && press.key() == lastRelease.key);
}

void RememberRelease(const QKeyEvent& release) { lastRelease = {release.key(), release.timestamp()}; }

void InstallReturnForWindows() { qApp->installEventFilter(new ReturnForWindows(qApp)); }

namespace Keyboard {

bool AsyncCommandKey() { return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier); }

bool AsyncOptionKey() {
    return (QGuiApplication::queryKeyboardModifiers() & (Qt::AltModifier | Qt::ShiftModifier)) != Qt::NoModifier;
}

}  // namespace Keyboard
