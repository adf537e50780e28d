#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include "platform/Window.h"

// What tests do to windows, as a user and the desktop would.

/// Lets events come until something holds. False: it takes too long.
inline bool Eventually(const std::function<bool()>& holds) {
    for (const QDeadlineTimer deadline(30'000); !holds(); QThread::msleep(1)) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents();
    }
    return true;
}

/// Closes a window and lets it go.
inline void End(Window& window) {
    window.Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The widget of the control of that name, in whichever window shows.
template <class Widget = QWidget>
Widget& WidgetNamed(const char* name) {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        auto* found = window->isVisible() ? window->findChild<Widget*>(name) : nullptr;
        if (found) return *found;
    }
    throw std::out_of_range(name);
}

inline void Press(QWidget& widget, int key, const QString& text, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, held, text);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void Mouse(QEvent::Type type, QWidget& widget, QPointF at, Qt::MouseButton button = Qt::LeftButton,
                  Qt::MouseButtons held = Qt::NoButton) {
    QMouseEvent event(type, at, widget.mapTo(widget.window(), at), widget.mapToGlobal(at), button, held | button,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}
