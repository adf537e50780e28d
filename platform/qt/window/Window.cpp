#include "platform/Window.h"

#include <QtCore/QThread>
#include <QtWidgets/QApplication>

#include "platform/qt/drawing/Styles.h"
#include "platform/qt/window/OpenWindows.h"
#include "platform/qt/window/WindowPeer.h"

Window::Window() : peer_(std::make_unique<WindowPeer>(*this)) {}

Window::~Window() = default;

// Qt would show the program's name instead of an empty title.
void Window::Title(const std::string& title) { peer_->setWindowTitle(ToQString(title.empty() ? " " : title)); }

Int32 Window::Left() const { return peer_->Inside().left(); }
void Window::Left(Int32 left) { peer_->MoveTo({left, Top()}); }
Int32 Window::Top() const { return peer_->Inside().top(); }
void Window::Top(Int32 top) { peer_->MoveTo({Left(), top}); }
Int32 Window::Width() const { return peer_->Inside().width(); }
void Window::Width(Int32 width) { peer_->SetSize({width, peer_->Inside().height()}); }
Int32 Window::Height() const {
    const int barHeight = peer_->IsFullScreen() ? 0 : peer_->BarHeight();
    return peer_->Inside().height() - barHeight;
}
void Window::Height(Int32 height) { peer_->SetSize({Width(), height + peer_->BarHeight()}); }
void Window::MinSize(Int32 width, Int32 height) { peer_->SetMinimum({width, height}); }

void Window::BackColor(Color color) {
    QPalette colors = peer_->Content().palette();
    colors.setColor(QPalette::Window, ToQColor(color));
    peer_->Content().setPalette(colors);
    peer_->Content().setAutoFillBackground(true);
}

void Window::Frame(Frames frame) {
    const Qt::WindowFlags others = peer_->windowFlags() & ~Qt::WindowType_Mask;
    peer_->setWindowFlags(others | (frame == Frames::Sheet ? Qt::Dialog : Qt::Window));
}

void Window::Placement(Placements placement) { peer_->SetCentred(placement == Placements::MainScreen); }
void Window::CloseButton(bool on) { peer_->setWindowFlag(Qt::WindowCloseButtonHint, on); }
void Window::MinimizeButton(bool on) { peer_->setWindowFlag(Qt::WindowMinimizeButtonHint, on); }
void Window::MaximizeButton(bool on) { peer_->setWindowFlag(Qt::WindowMaximizeButtonHint, on); }
void Window::Resizeable(bool on) { peer_->SetResizeable(on); }
Ref<MenuBar> Window::MenuBar() const { return peer_->Bar(); }
void Window::MenuBar(const Ref<::MenuBar>& bar) { peer_->SetMenuBar(bar); }
void Window::MenuBarVisible(bool on) { peer_->SetMenuBarVisible(on); }
bool Window::FullScreen() const { return peer_->IsFullScreen(); }
void Window::FullScreen(bool on) { peer_->SetFullScreen(on); }
void Window::Maximize() { peer_->Zoom(); }

void Window::Show() {
    peer_->setWindowState(peer_->windowState() & ~Qt::WindowMinimized);
    peer_->show();
    peer_->raise();
    peer_->activateWindow();
}

void Window::ShowWithin(Window& parent, Int32) { peer_->ShowOver(*parent.peer_); }

void Window::ShowModalWithin(Window& parent) {
    const auto alive = shared_from_this();  // closing drops the list's reference before this returns
    peer_->ShowOver(*parent.peer_);
    peer_->WaitUntilClosed();
}

void Window::Close() { peer_->close(); }

void Window::Refresh(bool) {
    peer_->update();
    peer_->Content().update();
}

void Window::UpdateNow() { peer_->repaint(); }
void Window::SetFocus() { peer_->setFocus(); }

void Window::_AddMenuHandler(const std::string& itemName, MenuHandler handler) {
    peer_->Handlers()[itemName] = std::move(handler);
}

Window* Window::FindOpen(const std::string& key) { return open_windows::Find(key); }

void Window::Open(const std::string& key, const std::shared_ptr<Window>& window) {
    open_windows::Add(key, window);
    try {
        window->peer_->Build();
    } catch (...) {
        open_windows::Remove(*window);
        throw;
    }
    if (window->peer_->windowType() != Qt::Dialog) window->peer_->show();
}

bool Window::IsMainThread() { return QThread::currentThread() == qApp->thread(); }
void Window::EndWorkers() { peer_->Controls().EndWorkers(); }
Control* Window::FindControl(const std::string& name) const { return peer_->Controls().Find(name); }

void Window::Adopt(const std::string& name, std::unique_ptr<Control> control) {
    peer_->Controls().Add(name, std::move(control));
}
