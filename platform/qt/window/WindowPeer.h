#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include "platform/qt/window/ControlList.h"
#include "platform/qt/window/MenuBinding.h"

/// The widget of a window: a menu bar, if it has one, and below it the area of the controls. In fullscreen
/// the bar lies over that area instead, so that the controls don't move when it comes and goes.
class WindowPeer final : public QWidget {
  public:
    explicit WindowPeer(Window& owner);

    /// Lays the window out, creates its controls and delivers Open. It must be in the list of open windows.
    void Build();

    void SetCentred(bool on) { isCentred_ = on; }

    /// The window's inside on the screen: its controls and a menu bar that takes room. When fullscreen is
    /// left, it is at once what it will be when the window manager has brought it back.
    QRect Inside() const;
    void MoveTo(QPoint corner);
    void SetSize(QSize size);
    /// Whether the user can change the size; the program always can.
    void SetResizeable(bool on);
    /// `minimum` doesn't include the menu bar.
    void SetMinimum(QSize minimum);

    void SetMenuBar(const Ref<MenuBar>& bar);
    Ref<MenuBar> Bar() const { return menu_ ? menu_->Bar() : nullptr; }
    void SetMenuBarVisible(bool on);
    /// The part of the window's height that the menu bar takes when it isn't fullscreen.
    int BarHeight() const;

    QWidget& Content() { return content_; }
    ControlList& Controls() { return controls_; }
    MenuBinding::Handlers& Handlers() { return handlers_; }

    /// Whether the program has asked for fullscreen. One by the window manager alone is just a large window.
    bool IsFullScreen() const { return fullScreen_ == FullScreen::On; }
    void SetFullScreen(bool on);
    void Zoom();
    /// Shows the window over `parent`, which takes no input until it closes.
    void ShowOver(WindowPeer& parent);
    /// Returns when the window has closed or the program quits.
    void WaitUntilClosed();
    /// Quits `loop` when a window of the program gets the keyboard, or after two seconds.
    static void QuitAtFocus(QEventLoop& loop);

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
    /// While Leaving, the window manager has yet to bring the frame back.
    enum class FullScreen { Off, On, Leaving };

    void FrameChanged();
    void StateChanged();
    void AskForState();
    void Settle();
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
    FullScreen fullScreen_ = FullScreen::Off;
    /// Runs while the window manager is busy with a request to enter or leave fullscreen.
    QTimer settling_;
    /// What the window was when fullscreen was entered.
    QRect insideBefore_;
    bool wasMaximised_ = false;
    /// Where the program wants the window after fullscreen; nothing leaves that to the window manager.
    std::optional<QRect> placed_;
    /// The window that lies over this one and takes its input, and the one that this lies over.
    QPointer<WindowPeer> blocker_;
    QPointer<WindowPeer> blocked_;
    std::function<void()> closed_;
};
