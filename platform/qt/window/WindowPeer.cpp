#include "platform/qt/window/WindowPeer.h"

#include <QtCore/QEventLoop>
#include <QtGui/QCloseEvent>
#include <QtGui/QWindow>
#include <utility>

#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/Keys.h"
#include "platform/qt/window/OpenWindows.h"

WindowPeer::WindowPeer(Window& owner) : owner_(owner) {
    setMouseTracking(true);
    content_.setMouseTracking(true);
}

WindowPeer::~WindowPeer() = default;

WindowPeer& WindowPeer::Of(const QWidget& control) { return static_cast<WindowPeer&>(*control.window()); }

void WindowPeer::Build() {
    owner_.Layout();
    if (isCentred_) Centre();
    owner_.CreateControls();
    owner_.AddMenuHandlers(owner_);
    controls_.SetTabOrder();
    isBuilt_ = true;
    for (RectControl* control : controls_.Seen())
        Deliver([control] { control->Event_Open(); });
    Deliver([this] { owner_.Event_Open(); });
    if (menu_) menu_->PassEnabling();  // a screen reader may list the commands before anybody opens a menu
}

void WindowPeer::SetFrame(Window::Frames frame) {
    isSheet_ = frame == Window::Frames::Sheet;
    setWindowFlags(isSheet_ ? Qt::Dialog : Qt::Window);
}

void WindowPeer::SetCloseable(bool on) {
    isCloseable_ = on;
    SetTitleButton(Qt::WindowCloseButtonHint, on);
}

// Only with these two do window managers look at the buttons.
void WindowPeer::SetTitleButton(Qt::WindowType button, bool on) {
    Qt::WindowFlags flags = windowFlags() | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    setWindowFlags(flags.setFlag(button, on));
}

void WindowPeer::SetBackground(const QColor& color) {
    QPalette colors = content_.palette();
    colors.setColor(QPalette::Window, color);
    content_.setPalette(colors);
    content_.setAutoFillBackground(true);
}

void WindowPeer::SetResizeable(bool on) {
    isResizeable_ = on;
    SetSize(size());
}

void WindowPeer::Centre() {
    QRect place = geometry();
    place.moveCenter(screen()->availableGeometry().center());
    setGeometry(place);
}

// A window that isn't shown yet hears of its new size only when it is.
void WindowPeer::SetSize(QSize size) {
    isResizeable_ ? resize(size) : setFixedSize(size);
    Arrange();
}

void WindowPeer::SetMenuBar(const Ref<MenuBar>& bar) {
    menu_ = std::make_unique<MenuBinding>(bar, *this, [this] { owner_.Event_EnableMenuItems(); });
    Arrange();
}

void WindowPeer::AddHandler(const std::string& itemName, Window::MenuHandler handler) {
    if (menu_) menu_->AddHandler(itemName, std::move(handler));
}

void WindowPeer::SetMenuBarVisible(bool on) {
    menuBarVisible_ = on;
    Arrange();
}

int WindowPeer::BarHeight() const { return menu_ ? menu_->Widget().sizeHint().height() : 0; }

// Showing an open window again, or closing one that never showed, must do no harm: both come through here.
void WindowPeer::closeEvent(QCloseEvent* event) {
    if (event->spontaneous() && !isCloseable_) return event->ignore();
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
    winId();  // makes the window handle
    windowHandle()->setTransientParent(parent.windowHandle());
    show();
}

void WindowPeer::WaitUntilClosed() {
    if (isClosed_) return;
    QEventLoop loop;
    closed_ = [&loop] { loop.quit(); };
    loop.exec();
    closed_ = nullptr;
}

// Zooms once the event under way is over, and not at all if the window has gone fullscreen by then: a window manager
// would bring the zoomed state back at the end of fullscreen, when the saved frame is wanted.
void WindowPeer::Zoom() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!isFullScreen()) setWindowState(windowState() | Qt::WindowMaximized);
        },
        Qt::QueuedConnection);
}

QRect WindowPeer::Inside() const { return isFullScreen() && !wantsFullScreen_ ? normalGeometry() : geometry(); }

void WindowPeer::SetFullScreen(bool on) {
    if (on == IsFullScreen()) return;
    if (on) insideBeforeFullScreen_ = Inside();
    wantsFullScreen_ = on;
    setWindowState(windowState().setFlag(Qt::WindowFullScreen, on));
    // The window manager takes its time to bring the old frame back. Asked for at once, it can be built upon at once.
    if (!on) setGeometry(insideBeforeFullScreen_);
    Arrange();
}

void WindowPeer::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) Arrange();
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && blocker_) blocker_->activateWindow();
    QWidget::changeEvent(event);
}

void WindowPeer::resizeEvent(QResizeEvent*) { Arrange(); }

void WindowPeer::Arrange() {
    const int barHeight = BarHeight();
    const int top = IsFullScreen() ? 0 : barHeight;
    if (menu_) {
        menu_->Widget().setGeometry(0, 0, width(), barHeight);
        menu_->Widget().setVisible(!IsFullScreen() || menuBarVisible_);
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
    if (!event->spontaneous()) controls_.FocusFirstField();
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
        if (menu_) menu_->PassEnabling();
    }
    return QWidget::event(event);
}

void WindowPeer::keyPressEvent(QKeyEvent* event) {
    const std::string key = KeyText(*event);
    if (key.empty() || IsRepeat(*event)) return event->ignore();
    const bool isTaken = Deliver([&] { return owner_.Event_KeyDown(key); }) || controls_.PressButton(key);
    event->setAccepted(isTaken);
}
