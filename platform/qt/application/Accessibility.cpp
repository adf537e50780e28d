#include "platform/qt/application/Accessibility.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QAccessibleWidget>

#include "platform/qt/controls/CanvasAccessible.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/window/WindowPeer.h"

namespace {

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget) return nullptr;
    if (auto* canvas = dynamic_cast<Canvas*>(ControlOf(*widget))) return new CanvasAccessible(*widget, *canvas);
    if (auto* window = dynamic_cast<WindowPeer*>(widget)) {
        return new QAccessibleWidget(window, window->IsSheet() ? QAccessible::Dialog : QAccessible::Window);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(Make); }
