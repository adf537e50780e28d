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

/// How long the window manager may take to answer a request.
constexpr std::chrono::milliseconds kPatience(2000);

constexpr auto kButtons = Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
/// Without these, window managers would ignore the hints for the buttons.
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

// Before the window shows, no resize event tells it of its new size: hence the last line.
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

// It may come twice, and for a window that was never shown.
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

// Not modal in Qt's sense: then the window below couldn't be closed either.
void WindowPeer::ShowOver(WindowPeer& parent) {
    blocked_ = &parent;
    parent.blocker_ = this;
    parent.setEnabled(false);
    if (parent.menu_ && parent.menu_->Quit()) addAction(parent.menu_->Quit());
    winId();  // makes the window handle
    windowHandle()->setTransientParent(parent.windowHandle());
    show();
}

// The desktop gives the keyboard back to the window below a moment after this one has closed; weston doesn't
// if that window has gone fullscreen by then. So this waits for the keyboard too, but not for long.
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

// The event under way may go on to fullscreen. The window manager would then bring back the zoomed window.
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

// On Wayland a maximised window stays so beneath fullscreen: KWin ignores a request to maximise a window that
// is still fullscreen. On X11 it can't stay so: for each change Qt ends the maximised state and asks for it
// again, and mutter then forgets the size that the window had before.
void WindowPeer::AskForState() {
    const bool isMaximised = wasMaximised_ && !(IsFullScreen() && QGuiApplication::platformName() == u"xcb");
    Qt::WindowStates state;
    state.setFlag(Qt::WindowMaximized, isMaximised).setFlag(Qt::WindowFullScreen, IsFullScreen());
    setWindowState(state);
}

// While the window manager is busy with a request, it may still report what an earlier one has led to.
void WindowPeer::StateChanged() {
    if (fullScreen_ != FullScreen::Off && isFullScreen() != IsFullScreen()) {
        if (!settling_.isActive()) fullScreen_ = FullScreen::Off;  // the window manager has ended it
        AskForState();
    }
    Arrange();
}

void WindowPeer::FrameChanged() {
    const bool isBack = insideBefore_.isNull() || geometry() == insideBefore_;
    if (fullScreen_ == FullScreen::On && size() == screen()->size()) settling_.stop();
    if (fullScreen_ == FullScreen::Leaving && isBack) Settle();
}

// Fullscreen has ended, or the window manager has had its time to end it. It brings the frame back by itself:
// a request for the same one would end the maximised state, or could come before the title bar is back. A
// request for another one has waited for this moment.
void WindowPeer::Settle() {
    settling_.stop();
    if (fullScreen_ != FullScreen::Leaving) return;
    const bool isOther = placed_ && !insideBefore_.isNull() && placed_ != insideBefore_;
    if (isOther && isMaximized()) {  // on Wayland a maximised window must not have another size
        insideBefore_ = {};          // whatever comes back now
        settling_.start(kPatience);
        return setWindowState(Qt::WindowNoState);
    }
    fullScreen_ = FullScreen::Off;
    if (placed_ && placed_ != geometry() && !isMaximized()) setGeometry(*placed_);
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
    // X11 doesn't mark the last step of a resize, so each step counts as both.
    Deliver([this] { owner_.Event_Resizing(); });
    Deliver([this] { owner_.Event_Resized(); });
}

void WindowPeer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) return;
    if (menu_) setFocus();  // so that the menu bar gives the focus back to this; else it would keep it
    controls_.FocusFirstField();
}

void WindowPeer::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::NoButton) return;
    // Only scenePosition keeps its fraction when a control passes the event on.
    const QPoint at = PixelAt(event->scenePosition() - content_.pos());
    Deliver([&] { owner_.Event_MouseMove(at.x(), at.y()); });
}

bool WindowPeer::event(QEvent* event) {
    if (event->type() == QEvent::KeyRelease) RememberRelease(static_cast<QKeyEvent&>(*event));
    // Before Qt looks for a shortcut, this event asks whether the key is wanted for something else.
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
