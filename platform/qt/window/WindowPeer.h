#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include "platform/qt/window/ControlList.h"
#include "platform/qt/window/MenuBinding.h"

/// The widget of a window. It contains the menu bar, if there is one, and below it the area of the controls.
/// In fullscreen the bar overlaps that area, so that showing the bar doesn't move the controls.
class WindowPeer final : public QWidget {
  public:
    explicit WindowPeer(Window& owner);

    /// Lays the window out, creates its controls and delivers Open. `owner` must be in open_windows already.
    void Build();

    void SetCentred(bool on) { isCentred_ = on; }

    /// Returns the window's place on the screen, with the menu bar but without the frame. While the window
    /// manager is still ending fullscreen, this is already the place that the window will have afterwards.
    QRect Inside() const;
    void MoveTo(QPoint corner);
    void SetSize(QSize size);
    /// Sets whether the user can resize the window; the program always can.
    void SetResizeable(bool on);
    /// Sets the minimum size, which doesn't include the menu bar.
    void SetMinimum(QSize minimum);

    void SetMenuBar(const Ref<MenuBar>& bar);
    Ref<MenuBar> Bar() const { return menu_ ? menu_->Bar() : nullptr; }
    void SetMenuBarVisible(bool on);
    /// Returns the menu bar's height, also while the bar is hidden; 0 without a menu bar.
    int BarHeight() const;

    QWidget& Content() { return content_; }
    ControlList& Controls() { return controls_; }
    MenuBinding::Handlers& Handlers() { return handlers_; }

    /// Whether the program has requested fullscreen; false if only the window manager has set it.
    bool IsFullScreen() const { return fullScreen_ == FullScreen::On; }
    void SetFullScreen(bool on);
    void Zoom();
    /// Shows this window over `parent` and blocks the parent's input until this window closes.
    void ShowOver(WindowPeer& parent);
    /// Runs an event loop until the window has closed or the program quits.
    void WaitUntilClosed();
    /// Quits `loop` when a window of the program gets the keyboard focus, or after two seconds.
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
    /// In the state Leaving, the window manager hasn't yet restored the window's geometry.
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
    /// Is active while the window manager carries out a request to enter or leave fullscreen.
    QTimer settling_;
    /// The geometry of the window, and whether it was maximised, before fullscreen.
    QRect insideBefore_;
    bool wasMaximised_ = false;
    /// The geometry that the program requested while fullscreen was ending; nothing if it requested none.
    std::optional<QRect> placed_;
    /// The window that blocks this window's input, and the window whose input this window blocks.
    QPointer<WindowPeer> blocker_;
    QPointer<WindowPeer> blocked_;
    std::function<void()> closed_;
};
