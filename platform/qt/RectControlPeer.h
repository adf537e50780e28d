#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "platform/Control.h"

/// The widget of a control. The control owns it, unless the window's widget went first.
struct RectControl::Peer {
    explicit Peer(QWidget* control) : widget(control) {}
    ~Peer() { delete widget.data(); }

    QPointer<QWidget> widget;
};

/// The widget of a control whose class is known.
template <class Widget>
Widget& WidgetOf(const RectControl& control) {
    return static_cast<Widget&>(*control.peer().widget);
}
