#include "platform/qt/window/WindowPeer.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <utility>

#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/Keys.h"
#include "platform/qt/window/OpenWindows.h"

// Only with the first two hints do window managers look at those for the buttons.
WindowPeer::WindowPeer(Window& owner)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowMinMaxButtonsHint |
                           Qt::WindowCloseButtonHint),
      owner_(owner) {
    setMouseTracking(true);
    content_.setMouseTracking(true);
}

void WindowPeer::Build() {
    owner_.Layout();
    if (isCentred_) setGeometry({screen()->availableGeometry().center() - rect().center(), size()});
    owner_.CreateControls();
    owner_.AddMenuHandlers(owner_);
    controls_.SetTabOrder();
    isBuilt_ = true;
    for (RectControl* control : controls_.RectControls())
        Deliver([control] { control->Event_Open(); });
    Deliver([this] { owner_.Event_Open(); });
    if (menu_) menu_->UpdateEnabled();  // a screen reader may list the commands before anybody opens a menu
}

QRect WindowPeer::Inside() const {
    if (fullScreen_ == FullScreen::Leaving) return insideBeforeFullScreen_;
    return isFullScreen() && !IsFullScreen() ? normalGeometry() : geometry();
}

// What the window manager is about to bring back isn't asked for as well: a maximised window would lose its state.
void WindowPeer::MoveTo(QPoint corner) {
    const QRect inside = Inside();
    if (fullScreen_ != FullScreen::Leaving || corner != inside.topLeft()) setGeometry(QRect(corner, inside.size()));
}

// A window that isn't shown yet hears of its new size only when it is.
void WindowPeer::SetSize(QSize size) {
    if (fullScreen_ == FullScreen::Leaving && size == Inside().size()) return;
    if (isResizeable_) {
        setMinimumSize(minimum_ + QSize(0, BarHeight()));
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        resize(size);
    } else {
        setFixedSize(size);
    }
    Arrange();
}

void WindowPeer::SetResizeable(bool on) {
    isResizeable_ = on;
    SetSize(size());
}

void WindowPeer::SetMinimum(QSize minimum) {
    minimum_ = minimum;
    SetSize(size());
}

void WindowPeer::SetMenuBar(const Ref<MenuBar>& bar) {
    const int heightBefore = BarHeight();
    menu_ = std::make_unique<MenuBinding>(bar, *this, handlers_, [this] { owner_.Event_EnableMenuItems(); });
    SetSize(size() + QSize(0, BarHeight() - heightBefore));
}

void WindowPeer::SetMenuBarVisible(bool on) {
    menuBarVisible_ = on;
    Arrange();
}

int WindowPeer::BarHeight() const { return menu_ ? menu_->Widget().sizeHint().height() : 0; }

// Showing an open window again, or closing one that never showed, must do no harm: both come through here.
void WindowPeer::closeEvent(QCloseEvent* event) {
    if (event->spontaneous() && !windowFlags().testFlag(Qt::WindowCloseButtonHint)) return event->ignore();
    event->accept();
    if (std::exchange(isClosed_, true)) return;
    try {
        owner_.Event_Close();
    } catch (...) {
        QuitOnUncaught();
    }
    if (blocked_) blocked_->setEnabled(true);
    if (closed_) closed_();
    open_windows::Remove(owner_);
}

// Not modal in Qt's sense, which would take away more than the input: that the window below can still be closed.
void WindowPeer::ShowOver(WindowPeer& parent) {
    blocked_ = &parent;
    parent.blocker_ = this;
    parent.setEnabled(false);
    if (parent.menu_ && parent.menu_->Quit()) addAction(parent.menu_->Quit());
    winId();  // makes the window handle
    windowHandle()->setTransientParent(parent.windowHandle());
    show();
}

// A desktop gives the keyboard back to the window below some time after this one has gone, and weston never to one that
// has become fullscreen by then: so that is waited for, but not for long, as it may have gone elsewhere.
void WindowPeer::WaitUntilClosed() {
    if (isClosed_) return;
    QEventLoop loop;
    closed_ = [&loop] {
        QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &loop, [&loop](const QWindow* focused) {
            if (focused) loop.quit();
        });
        QTimer::singleShot(2000, &loop, &QEventLoop::quit);
    };
    loop.exec();
    closed_ = nullptr;
}

// Zooms once the event under way is over, and not at all if the window has been told to go fullscreen by then: a window
// manager would bring the zoomed state back at the end of fullscreen, when the saved frame is wanted.
void WindowPeer::Zoom() {
    zoomWaits_ = true;
    const auto zoom = [this] {
        if (std::exchange(zoomWaits_, false)) setWindowState(windowState() | Qt::WindowMaximized);
    };
    QMetaObject::invokeMethod(this, zoom, Qt::QueuedConnection);
}

bool WindowPeer::IsFullScreen() const { return fullScreen_ == FullScreen::Entering || fullScreen_ == FullScreen::On; }

// Not both states at once: at each change the toolkit would take the maximised one from the window and give it back, at
// which a window manager may forget the size before.
void WindowPeer::SetFullScreen(bool on) {
    zoomWaits_ = false;
    if (on == IsFullScreen()) return;
    if (on && fullScreen_ == FullScreen::Off) {
        insideBeforeFullScreen_ = Inside();
        wasMaximised_ = isMaximized();
    }
    fullScreen_ = on ? FullScreen::Entering : FullScreen::Leaving;
    sinceAsked_.start();
    setWindowState(on ? Qt::WindowFullScreen : StateBeforeFullScreen());
    Arrange();
}

Qt::WindowState WindowPeer::StateBeforeFullScreen() const {
    return wasMaximised_ ? Qt::WindowMaximized : Qt::WindowNoState;
}

void WindowPeer::FrameChanged() {
    const bool isFilled = isFullScreen() && size() == screen()->size();
    if (fullScreen_ == FullScreen::Entering && isFilled) fullScreen_ = FullScreen::On;
    if (fullScreen_ == FullScreen::Leaving && !isFullScreen()) fullScreen_ = FullScreen::Off;
}

// On the way into fullscreen and out of it, the window manager may for a while still answer what was asked for before.
void WindowPeer::StateChanged() {
    const bool isAsWanted = fullScreen_ == FullScreen::Off || isFullScreen() == IsFullScreen();
    if (!isAsWanted && fullScreen_ != FullScreen::On && !sinceAsked_.hasExpired(2000)) {
        setWindowState(IsFullScreen() ? Qt::WindowFullScreen : StateBeforeFullScreen());
    } else if (!isAsWanted && IsFullScreen()) {  // the window manager has ended it
        fullScreen_ = FullScreen::Off;
        setWindowState(windowState() | StateBeforeFullScreen());
    }
    Arrange();
}

void WindowPeer::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) StateChanged();
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && blocker_) blocker_->activateWindow();
    QWidget::changeEvent(event);
}

void WindowPeer::moveEvent(QMoveEvent*) { FrameChanged(); }

void WindowPeer::resizeEvent(QResizeEvent*) {
    FrameChanged();
    Arrange();
}

void WindowPeer::Arrange() {
    const int barHeight = BarHeight();
    const int top = IsFullScreen() ? 0 : barHeight;
    if (menu_) {
        menu_->Widget().setGeometry(0, 0, width(), barHeight);
        menu_->SetVisible(!IsFullScreen() || menuBarVisible_);
        menu_->Widget().raise();
    }
    const QSize before = content_.size();
    content_.setGeometry(0, top, width(), height() - top);
    if (!isBuilt_ || content_.size() == before) return;
    controls_.FollowEdges(before, content_.size());
    // X11 doesn't tell the last step of a resize from the others, so each step is both.
    Deliver([this] { owner_.Event_Resizing(); });
    Deliver([this] { owner_.Event_Resized(); });
}

void WindowPeer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return;
    if (menu_) setFocus();  // a menu bar gives the keys back to who had them, and keeps them if nobody had
    controls_.FocusFirstField();
}

void WindowPeer::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::NoButton) return;
    // Of the positions only this one isn't rounded on its way up from a control.
    const QPoint at = PixelAt(event->scenePosition() - content_.pos());
    Deliver([&] { owner_.Event_MouseMove(at.x(), at.y()); });
}

bool WindowPeer::event(QEvent* event) {
    if (event->type() == QEvent::KeyRelease) RememberRelease(static_cast<QKeyEvent&>(*event));
    // The toolkit asks here, before it looks at its table of shortcuts, whether someone wants the key for itself.
    if (event->type() == QEvent::ShortcutOverride) {
        if (IsRepeat(static_cast<QKeyEvent&>(*event))) {
            event->accept();  // a held key is no new command
            return true;
        }
        if (menu_) menu_->UpdateEnabled();
    }
    return QWidget::event(event);
}

void WindowPeer::keyPressEvent(QKeyEvent* event) {
    const std::optional<std::string> key = KeyText(*event);
    if (!key || IsRepeat(*event)) return event->ignore();
    const bool isTaken = Deliver([&] { return owner_.Event_KeyDown(*key); }) || controls_.PressButton(*key);
    event->setAccepted(isTaken);
}
