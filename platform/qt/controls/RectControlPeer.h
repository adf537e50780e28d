#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtWidgets/QWidget>
#include <cmath>

#include "platform/Control.h"

/// Owns the widget of a control, unless the window's widget was destroyed first, and this one with it.
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
    /// Where the control should be. In a very small window its size may be negative, unlike a widget's.
    QRect place;
};

/// The control whose widget this is; nil if it isn't a control's.
inline RectControl* ControlOf(const QWidget& widget) {
    return static_cast<RectControl*>(widget.property(RectControl::Peer::kControl).value<void*>());
}

/// The widget of a control. The caller must know its class.
template <class Widget>
Widget& WidgetOf(const RectControl& control) {
    return static_cast<Widget&>(*control.peer().widget);
}

/// The pixel that the pointer is in. Rounding would count the right half of a pixel to the next one.
inline QPoint PixelAt(QPointF position) {
    return {ToInt32(std::floor(position.x())), ToInt32(std::floor(position.y()))};
}
