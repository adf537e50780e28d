#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "platform/Control.h"

/// The widget of a control. The control owns it, unless the window's widget went first.
struct RectControl::Peer {
    explicit Peer(QWidget* control) : widget(control), place(control->geometry()) {}
    ~Peer() { delete widget.data(); }

    void Place(QRect newPlace) {
        place = newPlace;
        widget->setGeometry(place);
    }

    QPointer<QWidget> widget;
    /// Where the widget should be. No widget is smaller than nothing, as a place that follows the edges of its window
    /// can become for a while.
    QRect place;
};

/// The widget of a control whose class is known.
template <class Widget>
Widget& WidgetOf(const RectControl& control) {
    return static_cast<Widget&>(*control.peer().widget);
}
