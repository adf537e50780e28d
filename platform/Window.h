#pragma once

#include "platform/Color.h"
#include "platform/Control.h"
#include "platform/Menu.h"

/// A window of the desktop. Width and Height are those of the area below the menu bar, where the controls
/// are; Left and Top are the place of the window's inside on the screen; all in logical pixels. The toolkit
/// owns the open windows. A closed one is destroyed as soon as no handler is running.
class Window : public std::enable_shared_from_this<Window> {
  public:
    enum class Frames { Document = 0, Sheet = 8 };
    enum class Placements { Default = 0, MainScreen = 2 };
    using MenuHandler = std::function<bool()>;

    Window();
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void Title(const std::string& title);
    Int32 Left() const;
    void Left(Int32 left);
    Int32 Top() const;
    void Top(Int32 top);
    Int32 Width() const;
    void Width(Int32 width);
    Int32 Height() const;
    void Height(Int32 height);
    void MinSize(Int32 width, Int32 height);
    void BackColor(Color color);
    void Frame(Frames frame);
    /// Where the window shows first: where the desktop puts it, or in the middle of the main screen.
    void Placement(Placements placement);
    /// Whether the user can close the window by the desktop's means, and change its size.
    void CloseButton(bool on);
    void MinimizeButton(bool on);
    void MaximizeButton(bool on);
    void Resizeable(bool on);

    Ref<::MenuBar> MenuBar() const;
    void MenuBar(const Ref<::MenuBar>& bar);
    /// Shows or hides the menu bar in fullscreen, where it lies over the controls; windowed, it always shows.
    void MenuBarVisible(bool on);

    bool FullScreen() const;
    void FullScreen(bool on);
    /// Zooms the window to the screen's size. One that goes fullscreen in the same event isn't zoomed first.
    void Maximize();

    /// Shows the window, or brings it forward, also from the taskbar.
    void Show();
    /// Shows the window over `parent`, which takes no input until it closes; returns at once.
    void ShowWithin(Window& parent, Int32 facing);
    /// The same, but returns when the window has closed.
    void ShowModalWithin(Window& parent);
    void Close();
    void Refresh(bool eraseBackground);
    /// Repaints at once what waits to be repainted.
    void UpdateNow();
    /// Gives the keyboard focus back to the window itself.
    void SetFocus();

    /// The control of that name. Throws NilObjectException when there is none of that class.
    template <class C>
    C& Find(const std::string& name) const {
        auto* control = dynamic_cast<C*>(FindControl(name));
        if (!control) throw NilObjectException(name);
        return *control;
    }

    /// Sets the handler of a command of the menu bar. Its result makes no difference.
    void _AddMenuHandler(const std::string& itemName, MenuHandler handler);

    /// The open window of class W. If there is none, it is built, opened and, unless it is a sheet, shown;
    /// but only on the main thread: any other one gets a NilObjectException.
    template <class W>
    static W& ImplicitInstance(const std::string& key) {
        if (Window* open = FindOpen(key)) return static_cast<W&>(*open);
        if (!IsMainThread()) throw NilObjectException(key);
        const std::shared_ptr<W> window(new W, [](W* last) {
            last->EndWorkers();  // first, since they use the members of the derived window
            delete last;
        });
        Open(key, window);
        return *window;
    }

  protected:
    template <class C>
    C& AddControl(const std::string& name) {
        auto control = std::make_unique<C>();
        C& added = *control;
        Adopt(name, std::move(control));
        return added;
    }
    template <class C>
    C& AddControl(const std::string& name, Int32 left, Int32 top, Int32 width, Int32 height, Int32 tabIndex) {
        C& added = AddControl<C>(name);
        added.Bounds(left, top, width, height);
        added.TabIndex(tabIndex);
        return added;
    }

    // What a window class defines. Each is called once, in this order, when the window is built.
    virtual void Layout() {}
    virtual void CreateControls() {}
    /// Registers the handlers of the menu bar's commands with `window`, which is this one.
    virtual void AddMenuHandlers(Window&) {}

    // Events. Coordinates are those of the controls.
    virtual void Event_Open() {}
    virtual void Event_Close() {}
    virtual void Event_Resizing() {}
    virtual void Event_Resized() {}
    virtual void Event_MouseMove(Int32, Int32) {}
    virtual void Event_EnableMenuItems() {}
    /// A key that no control takes, as one character; a held key comes once. True consumes it.
    virtual bool Event_KeyDown(const std::string&) { return false; }

  private:
    friend class WindowPeer;

    static Window* FindOpen(const std::string& key);
    static bool IsMainThread();
    void EndWorkers();
    static void Open(const std::string& key, const std::shared_ptr<Window>& window);
    Control* FindControl(const std::string& name) const;
    void Adopt(const std::string& name, std::unique_ptr<Control> control);

    std::unique_ptr<class WindowPeer> peer_;
};
