#include "platform/qt/WindowPeer.h"

#include <QtCore/QEventLoop>
#include <QtGui/QCloseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "platform/Controls.h"
#include "platform/Text.h"
#include "platform/Thread.h"
#include "platform/qt/EventBoundary.h"
#include "platform/qt/Keys.h"
#include "platform/qt/OpenWindows.h"
#include "platform/qt/RectControlPeer.h"

WindowPeer::WindowPeer(Window& owner) : owner_(owner) {}

WindowPeer::~WindowPeer() = default;

WindowPeer& WindowPeer::Of(const QWidget& control) { return static_cast<WindowPeer&>(*control.window()); }

void WindowPeer::Build() {
    owner_.Layout();
    if (isCentred_) Centre();
    owner_.CreateControls();
    owner_.AddMenuHandlers(owner_);
    SetTabOrder();
    isBuilt_ = true;
    for (RectControl* control : RectControls())
        Deliver([control] { control->Event_Open(); });
    Deliver([this] { owner_.Event_Open(); });
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

void WindowPeer::Adopt(const std::string& name, std::unique_ptr<Control> control) {
    if (auto* visible = dynamic_cast<RectControl*>(control.get())) {
        visible->peer().widget->setObjectName(QString::fromStdString(name));
        visible->peer().widget->setParent(&content_);
    }
    controls_.emplace_back(name, std::move(control));
}

Control* WindowPeer::Find(const std::string& name) const {
    const auto found =
        std::find_if(controls_.begin(), controls_.end(), [&](const auto& control) { return control.first == name; });
    return found == controls_.end() ? nullptr : found->second.get();
}

RectControl* WindowPeer::ControlOf(const QWidget& widget) const {
    const std::vector<RectControl*> all = RectControls();
    const auto found = std::find_if(all.begin(), all.end(), [&](auto* c) { return c->peer().widget == &widget; });
    return found == all.end() ? nullptr : *found;
}

void WindowPeer::EndWorkers() {
    for (const auto& [name, control] : controls_) {
        if (auto* thread = dynamic_cast<Thread*>(control.get())) thread->End();
    }
}

std::vector<RectControl*> WindowPeer::RectControls() const {
    std::vector<RectControl*> found;
    for (const auto& [name, control] : controls_) {
        if (auto* visible = dynamic_cast<RectControl*>(control.get())) found.push_back(visible);
    }
    return found;
}

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

QRect WindowPeer::Frame() const { return isFullScreen() && !wantsFullScreen_ ? normalGeometry() : geometry(); }

void WindowPeer::SetFullScreen(bool on) {
    if (on == IsFullScreen()) return;
    if (on) frameBeforeFullScreen_ = Frame();
    wantsFullScreen_ = on;
    setWindowState(windowState().setFlag(Qt::WindowFullScreen, on));
    // The window manager takes its time to bring the old frame back. Asked for at once, it can be built upon at once.
    if (!on) setGeometry(frameBeforeFullScreen_);
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
    for (RectControl* control : RectControls())
        FollowEdges(*control, before, content_.size());
    // X11 doesn't tell the last step of a resize from the others, so each step is both.
    Deliver([this] { owner_.Event_Resizing(); });
    Deliver([this] { owner_.Event_Resized(); });
}

void WindowPeer::FollowEdges(RectControl& control, QSize before, QSize after) const {
    const QSize growth = after - before;
    QRect place = control.peer().place;
    if (control.LockRight()) place.setRight(place.right() + growth.width());
    if (control.LockRight() && !control.LockLeft()) place.setLeft(place.left() + growth.width());
    if (control.LockBottom()) place.setBottom(place.bottom() + growth.height());
    if (control.LockBottom() && !control.LockTop()) place.setTop(place.top() + growth.height());
    control.peer().Place(place);
}

// Controls of a group come where the group stands, in an order of their own.
void WindowPeer::SetTabOrder() {
    const auto place = [this](const RectControl* control) {
        const std::string parent = control->peer().widget->parentWidget()->objectName().toStdString();
        const auto* group = dynamic_cast<GroupBox*>(Find(parent));
        return group ? std::pair(group->TabIndex(), control->TabIndex()) : std::pair(control->TabIndex(), -1);
    };
    std::vector<RectControl*> order = RectControls();
    std::stable_sort(order.begin(), order.end(), [&place](auto* a, auto* b) { return place(a) < place(b); });
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1]->peer().widget, order[i]->peer().widget);
    }
}

void WindowPeer::FocusFirstField() {
    for (RectControl* control : RectControls()) {
        if (!dynamic_cast<EditField*>(control)) continue;
        auto& field = static_cast<QLineEdit&>(*control->peer().widget);
        field.setFocus();
        field.selectAll();
        return;
    }
}

void WindowPeer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) FocusFirstField();
}

void WindowPeer::MouseMoved(Int32 x, Int32 y) {
    Deliver([&] { owner_.Event_MouseMove(x, y); });
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
    const bool isTaken = Deliver([&] { return owner_.Event_KeyDown(key); }) || PressButton(key);
    event->setAccepted(isTaken);
}

/// Return and Enter press the default button, Escape the cancel button.
bool WindowPeer::PressButton(const std::string& key) {
    const bool isEscape = key == Chr(27);
    if (!isEscape && key != Chr(13) && key != Chr(3)) return false;
    for (RectControl* control : RectControls()) {
        auto* button = dynamic_cast<PushButton*>(control);
        if (!button || !(isEscape ? button->Cancel() : button->Default())) continue;
        static_cast<QPushButton&>(*button->peer().widget).click();
        return true;
    }
    return false;
}
