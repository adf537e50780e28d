#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtWidgets/QWidget>
#include <cmath>

#include "platform/Control.h"

/// Owns the widget of a control. If the window's widget is destroyed first, Qt deletes the control's widget.
struct RectControl::Peer {
    explicit Peer(QWidget* control) : widget(control), place(control->geometry()) {}
    ~Peer() { delete widget.data(); }

    void Place(QRect newPlace) {
        place = newPlace;
        widget->setGeometry(place);
    }

    /// The name of the widget's property that holds a pointer to the control.
    static constexpr char kControl[] = "control";

    QPointer<QWidget> widget;
    /// The intended geometry. In a very small window its size may be negative, unlike a widget's size.
    QRect place;
};

/// Returns the control that `widget` belongs to; nil if it belongs to none.
inline RectControl* ControlOf(const QWidget& widget) {
    return static_cast<RectControl*>(widget.property(RectControl::Peer::kControl).value<void*>());
}

/// Returns the widget of a control. `Widget` must be the widget's class, which isn't checked.
template <class Widget>
Widget& WidgetOf(const RectControl& control) {
    return static_cast<Widget&>(*control.peer().widget);
}

/// Returns the pixel that contains `position`. Rounding would return the next pixel for a pixel's right half.
inline QPoint PixelAt(QPointF position) {
    return {ToInt32(std::floor(position.x())), ToInt32(std::floor(position.y()))};
}
