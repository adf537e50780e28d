#pragma once

#include <QtCore/QElapsedTimer>
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

    /// Layout, controls and Open event of a window that is in the list of open windows.
    void Build();

    void SetCentred(bool on) { isCentred_ = on; }

    /// The window's inside on the screen: its controls and a menu bar that takes room.
    QRect Inside() const;
    void MoveTo(QPoint corner);
    void SetSize(QSize size);
    /// For the user; the program can always change the size.
    void SetResizeable(bool on);
    /// Without the menu bar.
    void SetMinimum(QSize minimum);

    void SetMenuBar(const Ref<MenuBar>& bar);
    Ref<MenuBar> Bar() const { return menu_ ? menu_->Bar() : nullptr; }
    void SetMenuBarVisible(bool on);
    /// The height that a windowed menu bar takes from the window's.
    int BarHeight() const;

    QWidget& Content() { return content_; }
    ControlList& Controls() { return controls_; }
    void AddHandler(const std::string& itemName, Window::MenuHandler handler) {
        handlers_[itemName] = std::move(handler);
    }

    /// Fullscreen as the program asked for it. One that the window manager has made of itself is a large window.
    bool IsFullScreen() const;
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
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    /// The window manager takes its time to enter fullscreen and to bring the old frame back.
    enum class FullScreen { Off, Entering, On, Leaving };

    void FrameChanged();
    void StateChanged();
    Qt::WindowState StateBeforeFullScreen() const;
    void Arrange();

    Window& owner_;
    QWidget content_{this};
    MenuBinding::Handlers handlers_;
    std::unique_ptr<MenuBinding> menu_;
    ControlList controls_{content_};
    bool isBuilt_ = false;
    bool isCentred_ = false;
    bool isResizeable_ = true;
    QSize minimum_{0, 0};
    bool menuBarVisible_ = true;
    bool isClosed_ = false;
    bool zoomWaits_ = false;
    FullScreen fullScreen_ = FullScreen::Off;
    QElapsedTimer sinceAsked_;
    QRect insideBeforeFullScreen_;
    bool wasMaximised_ = false;
    /// The window that lies over this one and takes its input, and the one that this lies over.
    QPointer<WindowPeer> blocker_;
    QPointer<WindowPeer> blocked_;
    std::function<void()> closed_;
};
