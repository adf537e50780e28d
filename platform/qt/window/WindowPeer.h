#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>
#include <functional>
#include <memory>
#include <string>

#include "platform/Window.h"
#include "platform/qt/window/ControlList.h"
#include "platform/qt/window/MenuBinding.h"

/// The widget of a window: a menu bar, if it has one, and below it the area of the controls. In fullscreen the bar lies
/// over that area instead, so that the controls don't move when it comes and goes.
class WindowPeer final : public QWidget {
  public:
    explicit WindowPeer(Window& owner);
    ~WindowPeer() override;

    /// The peer of the window that a control's widget is in.
    static WindowPeer& Of(const QWidget& control);

    /// Layout, controls and Open event of a window that is in the list of open windows.
    void Build();

    void SetFrame(Window::Frames frame);
    void SetCloseable(bool on);
    /// Shows or takes away one of the title bar's buttons.
    void SetTitleButton(Qt::WindowType button, bool on);
    void SetCentred(bool on) { isCentred_ = on; }
    /// For the user; the program can always change the size.
    void SetResizeable(bool on);
    bool IsSheet() const { return isSheet_; }
    void SetSize(QSize size);
    void SetBackground(const QColor& color);

    void SetMenuBar(const Ref<MenuBar>& bar);
    Ref<MenuBar> Bar() const { return menu_ ? menu_->Bar() : nullptr; }
    void SetMenuBarVisible(bool on);
    /// The height that a windowed menu bar takes from the window's.
    int BarHeight() const;

    QWidget& Content() { return content_; }
    ControlList& Controls() { return controls_; }
    void AddHandler(const std::string& itemName, Window::MenuHandler handler);

    /// The window's inside on the screen: its controls and a menu bar that takes room.
    QRect Inside() const;
    /// Fullscreen as the program asked for it. One that the window manager has made of itself is a large window.
    bool IsFullScreen() const { return wantsFullScreen_ && isFullScreen(); }
    void SetFullScreen(bool on);
    void Zoom();
    /// Shows the window over `parent`, which takes no input until it closes.
    void ShowOver(WindowPeer& parent);
    /// Returns when the window has closed or the program quits.
    void WaitUntilClosed();

  protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void Centre();
    void Arrange();

    Window& owner_;
    QWidget content_{this};
    std::unique_ptr<MenuBinding> menu_;
    ControlList controls_{content_};
    bool isBuilt_ = false;
    bool isSheet_ = false;
    bool isCentred_ = false;
    bool isCloseable_ = true;
    bool isResizeable_ = true;
    bool menuBarVisible_ = true;
    bool isClosed_ = false;
    bool wantsFullScreen_ = false;
    QRect insideBeforeFullScreen_;
    /// The window that lies over this one and takes its input, and the one that this lies over.
    QPointer<WindowPeer> blocker_;
    QPointer<WindowPeer> blocked_;
    std::function<void()> closed_;
};
