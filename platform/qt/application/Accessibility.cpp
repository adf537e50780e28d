#include "platform/qt/application/Accessibility.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QAccessibleWidget>

#include "platform/qt/controls/CanvasAccessible.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/window/WindowPeer.h"

namespace {

/// Asked for before the window knows whether it is a sheet.
class WindowAccessible final : public QAccessibleWidget {
  public:
    explicit WindowAccessible(WindowPeer& window) : QAccessibleWidget(&window), window_(window) {}
    QAccessible::Role role() const override { return window_.IsSheet() ? QAccessible::Dialog : QAccessible::Window; }

  private:
    const WindowPeer& window_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget) return nullptr;
    if (auto* canvas = dynamic_cast<Canvas*>(ControlOf(*widget))) return new CanvasAccessible(*widget, *canvas);
    if (auto* window = dynamic_cast<WindowPeer*>(widget)) return new WindowAccessible(*window);
    return nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(Make); }
