#include "platform/qt/application/Accessibility.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QAccessibleWidget>

#include "platform/qt/controls/CanvasAccessible.h"
#include "platform/qt/window/WindowPeer.h"

namespace {

QAccessibleInterface* Make(const QString&, QObject* object) {
    if (auto* canvas = dynamic_cast<CanvasWidget*>(object)) return new CanvasAccessible(*canvas);
    if (auto* window = dynamic_cast<WindowPeer*>(object)) {
        return new QAccessibleWidget(window, window->IsSheet() ? QAccessible::Dialog : QAccessible::Window);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(Make); }
