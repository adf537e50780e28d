#pragma once

#include "platform/Color.h"
#include "platform/Control.h"
#include "platform/Menu.h"

/// A window. Left and Top are the screen position of menu bar and contents; Width and Height are the size of
/// the contents, the area of the controls; all in logical pixels. The toolkit owns the open windows, and
/// destroys a closed window as soon as no handler is running.
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
    /// Sets where the window is first shown: where the desktop places it, or centred on the main screen.
    void Placement(Placements placement);
    // Set whether the desktop lets the user close, minimize, maximize or resize the window.
    void CloseButton(bool on);
    void MinimizeButton(bool on);
    void MaximizeButton(bool on);
    void Resizeable(bool on);

    Ref<::MenuBar> MenuBar() const;
    void MenuBar(const Ref<::MenuBar>& bar);
    /// Shows or hides the menu bar in fullscreen, where it covers controls. Otherwise it always shows.
    void MenuBarVisible(bool on);

    bool FullScreen() const;
    void FullScreen(bool on);
    /// Maximizes the window once the present event is over, unless the window is fullscreen by then.
    void Maximize();

    /// Shows, raises and activates the window; restores it if it is minimized.
    void Show();
    /// Shows the window over `parent`, which is disabled until this window closes; returns at once.
    void ShowWithin(Window& parent, Int32 facing);
    /// Shows the window over `parent`, which is disabled meanwhile; returns when this window has closed.
    void ShowModalWithin(Window& parent);
    void Close();
    void Refresh(bool eraseBackground);
    /// Carries out pending repaints at once.
    void UpdateNow();
    /// Takes the keyboard focus from the control that has it and gives it to the window itself.
    void SetFocus();

    /// Returns the control called `name`. Throws NilObjectException if there is none or it isn't a C.
    template <class C>
    C& Find(const std::string& name) const {
        auto* control = dynamic_cast<C*>(FindControl(name));
        if (!control) throw NilObjectException(name);
        return *control;
    }

    /// Sets the handler of the menu item called `itemName`. The handler's result is ignored.
    void _AddMenuHandler(const std::string& itemName, MenuHandler handler);

    /// Returns the open window that is registered under `key`. If there is none, creates and opens a W and,
    /// unless W is a sheet, shows it. On any other than the main thread, throws NilObjectException instead.
    template <class W>
    static W& ImplicitInstance(const std::string& key) {
        if (Window* open = FindOpen(key)) return static_cast<W&>(*open);
        if (!IsMainThread()) throw NilObjectException(key);
        const std::shared_ptr<W> window(new W, [](W* last) {
            last->EndWorkers();  // workers use members of W, so they end before W is destroyed
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

    // A window class overrides these. Each is called once, in this order, when the window is created.
    virtual void Layout() {}
    virtual void CreateControls() {}
    /// Registers the menu bar's handlers with the argument, which is this window.
    virtual void AddMenuHandlers(Window&) {}

    // Events that a window class may handle. Coordinates are relative to the area of the controls.
    virtual void Event_Open() {}
    virtual void Event_Close() {}
    virtual void Event_Resizing() {}
    virtual void Event_Resized() {}
    virtual void Event_MouseMove(Int32, Int32) {}
    virtual void Event_EnableMenuItems() {}
    /// Called with a key that no control handles, as one character, without auto-repeat. True consumes it.
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
