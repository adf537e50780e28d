#include "platform/qt/events/Keys.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGroupBox>
#include <utility>

#include "platform/Keyboard.h"
#include "platform/Text.h"

namespace {

constexpr std::pair<int, Int32> kControlCodes[] = {
    {Qt::Key_Return, Keyboard::kReturn}, {Qt::Key_Enter, Keyboard::kEnter},
    {Qt::Key_Escape, Keyboard::kEscape}, {Qt::Key_Backspace, Keyboard::kBackspace},
    {Qt::Key_Tab, Keyboard::kTab},       {Qt::Key_Backtab, Keyboard::kTab},
    {Qt::Key_Delete, Keyboard::kDelete}, {Qt::Key_Left, Keyboard::kLeft},
    {Qt::Key_Right, Keyboard::kRight},   {Qt::Key_Up, Keyboard::kUp},
    {Qt::Key_Down, Keyboard::kDown},
};

bool IsModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R);
}

struct Release {
    int key = 0;
    quint64 timestamp = 0;  // in milliseconds; 0 for a synthetic event
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
    for (const auto& [key, code] : kControlCodes)
        if (event.key() == key) return Chr(code);
    return QString::fromStdU32String(event.text().toStdU32String().substr(0, 1)).toStdString();
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
    return QGuiApplication::queryKeyboardModifiers().testAnyFlags(Qt::AltModifier | Qt::ShiftModifier);
}

}  // namespace Keyboard
