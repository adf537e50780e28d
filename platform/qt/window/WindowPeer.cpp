#include "platform/qt/window/WindowPeer.h"

#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <chrono>

#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/Keys.h"
#include "platform/qt/events/MainThread.h"
#include "platform/qt/window/OpenWindows.h"

namespace {

/// The timeout of a request to the window manager.
constexpr std::chrono::milliseconds kPatience(2000);

constexpr auto kButtons = Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
/// Without these hints, window managers would ignore kButtons.
constexpr auto kCustomised = Qt::CustomizeWindowHint | Qt::WindowTitleHint;

}  // namespace

WindowPeer::WindowPeer(Window& owner) : QWidget(nullptr, Qt::Window | kCustomised | kButtons), owner_(owner) {
    setMouseTracking(true);
    content_.setMouseTracking(true);
    settling_.setSingleShot(true);
    settling_.callOnTimeout(this, [this] { Settle(); });
}

void WindowPeer::Build() {
    owner_.Layout();
    if (isCentred_) setGeometry({screen()->availableGeometry().center() - rect().center(), size()});
    owner_.CreateControls();
    owner_.AddMenuHandlers(owner_);
    controls_.SetTabOrder();
    isBuilt_ = true;
    for (RectControl* control : controls_.All<RectControl>())
        Deliver([control] { control->Event_Open(); });
    Deliver([this] { owner_.Event_Open(); });
    if (menu_) menu_->UpdateEnabled();  // a screen reader may list the commands before anybody opens a menu
}

QRect WindowPeer::Inside() const {
    if (fullScreen_ == FullScreen::Leaving) return placed_.value_or(insideBefore_);
    return isFullScreen() && !IsFullScreen() ? normalGeometry() : geometry();
}

void WindowPeer::MoveTo(QPoint corner) {
    const QRect inside(corner, Inside().size());
    if (fullScreen_ != FullScreen::Leaving) return setGeometry(inside);
    placed_ = inside;
}

// Arrange is called here because a window gets no resize event before it is shown.
void WindowPeer::SetSize(QSize size) {
    if (fullScreen_ == FullScreen::Leaving) {
        placed_ = QRect(Inside().topLeft(), size);
        return;
    }
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

// A close event may come twice, and may come to a window that was never shown.
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

// The window isn't modal for Qt, because then the user couldn't close the parent.
void WindowPeer::ShowOver(WindowPeer& parent) {
    blocked_ = &parent;
    parent.blocker_ = this;
    parent.setEnabled(false);
    if (parent.menu_ && parent.menu_->Quit()) addAction(parent.menu_->Quit());
    winId();  // creates the window handle
    windowHandle()->setTransientParent(parent.windowHandle());
    show();
}

// The desktop returns the focus to the parent a moment after this window has closed, but Weston doesn't if
// the parent has become fullscreen by then. So this function also waits for the focus, for a limited time.
void WindowPeer::WaitUntilClosed() {
    if (isClosed_) return;
    QEventLoop loop;
    closed_ = [&loop] { QuitAtFocus(loop); };
    loop.exec();
    closed_ = nullptr;
}

void WindowPeer::QuitAtFocus(QEventLoop& loop) {
    QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &loop, [&loop](const QWindow* focused) {
        if (focused) loop.quit();
    });
    QTimer::singleShot(kPatience, &loop, &QEventLoop::quit);
}

// The zoom is queued, and dropped if this event enters fullscreen: leaving would restore the zoomed size.
void WindowPeer::Zoom() {
    AfterThisEvent(*this, [this] {
        if (fullScreen_ == FullScreen::Off) setWindowState(windowState() | Qt::WindowMaximized);
    });
}

void WindowPeer::SetFullScreen(bool on) {
    if (on == IsFullScreen()) return;
    if (fullScreen_ == FullScreen::Off) {
        insideBefore_ = Inside();
        placed_.reset();
        wasMaximised_ = isMaximized();
    }
    fullScreen_ = on ? FullScreen::On : FullScreen::Leaving;
    settling_.start(kPatience);
    AskForState();
    Arrange();
}

// On Wayland, a maximised window stays maximised in fullscreen, because KWin ignores a request to maximise a
// fullscreen window. On X11, the maximised state is cleared in fullscreen: at each change Qt would unset and
// request it again, and Mutter would then forget the size that the window had before it was maximised.
void WindowPeer::AskForState() {
    const bool isMaximised = wasMaximised_ && !(IsFullScreen() && QGuiApplication::platformName() == u"xcb");
    Qt::WindowStates state;
    state.setFlag(Qt::WindowMaximized, isMaximised).setFlag(Qt::WindowFullScreen, IsFullScreen());
    setWindowState(state);
}

// While a request is pending, the window manager may still report the result of an earlier request.
void WindowPeer::StateChanged() {
    if (fullScreen_ != FullScreen::Off && isFullScreen() != IsFullScreen()) {
        if (!settling_.isActive()) fullScreen_ = FullScreen::Off;  // the window manager has ended fullscreen
        AskForState();
    }
    Arrange();
}

void WindowPeer::FrameChanged() {
    const bool isBack = insideBefore_.isNull() || geometry() == insideBefore_;
    if (fullScreen_ == FullScreen::On && size() == screen()->size()) settling_.stop();
    if (fullScreen_ == FullScreen::Leaving && isBack) Settle();
}

// Is called when fullscreen has ended or the request has timed out. The window manager restores the geometry
// itself: to set the same geometry would end the maximised state, or could come before the title bar is back.
// Only a different geometry, which the program has requested meanwhile, is set here: again and again until the
// time is over, because a slow window manager may restore the old one once more after the request.
void WindowPeer::Settle() {
    if (fullScreen_ != FullScreen::Leaving) return;
    const bool isOther = placed_ && !insideBefore_.isNull() && placed_ != insideBefore_;
    if (isOther && isMaximized()) {  // on Wayland a maximised window can't be resized
        insideBefore_ = {};          // accept any geometry from now on
        settling_.start(kPatience);
        return setWindowState(Qt::WindowNoState);
    }
    if (!isOther) settling_.stop();
    if (!settling_.isActive()) fullScreen_ = FullScreen::Off;
    if (placed_ && placed_ != geometry() && !isMaximized()) setGeometry(*placed_);
}

// The activation of the blocking window is queued, because on Wayland Qt also requests that of this window in
// the same event, and the last request counts.
void WindowPeer::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) StateChanged();
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && blocker_)
        AfterThisEvent(*blocker_, [blocker = blocker_.data()] { blocker->activateWindow(); });
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
    // X11 doesn't tell which step of a resize is the last, so each step delivers both events.
    Deliver([this] { owner_.Event_Resizing(); });
    Deliver([this] { owner_.Event_Resized(); });
}

void WindowPeer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return;
    if (menu_) setFocus();  // the menu bar can return the focus only to a widget that had it
    controls_.FocusFirstField();
}

void WindowPeer::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::NoButton) return;
    // Only scenePosition keeps its fractional part when a control passes the event on.
    const QPoint at = PixelAt(event->scenePosition() - content_.pos());
    Deliver([&] { owner_.Event_MouseMove(at.x(), at.y()); });
}

bool WindowPeer::event(QEvent* event) {
    if (event->type() == QEvent::KeyRelease) RememberRelease(static_cast<QKeyEvent&>(*event));
    // Qt sends ShortcutOverride before it looks up a shortcut. Accepting the event suppresses the shortcut.
    if (event->type() == QEvent::ShortcutOverride) {
        if (IsRepeat(static_cast<QKeyEvent&>(*event))) {
            event->accept();  // a repeated key must not run a command again
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
