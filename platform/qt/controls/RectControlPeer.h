#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtWidgets/QWidget>
#include <cmath>

#include "platform/Control.h"

/// The widget of a control. The control owns it, unless the window's widget went first.
struct RectControl::Peer {
    explicit Peer(QWidget* control) : widget(control), place(control->geometry()) {}
    ~Peer() { delete widget.data(); }

    void Place(QRect newPlace) {
        place = newPlace;
        widget->setGeometry(place);
    }

    /// The widget's property that holds its control.
    static constexpr char kControl[] = "control";

    QPointer<QWidget> widget;
    /// Where the control should be: in a very small window with a negative size, which a widget's can't be.
    QRect place;
};

/// The control whose widget this is; nil if it is none's.
inline RectControl* ControlOf(const QWidget& widget) {
    return static_cast<RectControl*>(widget.property(RectControl::Peer::kControl).value<void*>());
}

/// The widget of a control whose class is known.
template <class Widget>
Widget& WidgetOf(const RectControl& control) {
    return static_cast<Widget&>(*control.peer().widget);
}

/// The pixel that the pointer is in; rounding would move the right half of each to the next.
inline QPoint PixelAt(QPointF position) {
    return {ToInt32(std::floor(position.x())), ToInt32(std::floor(position.y()))};
}
