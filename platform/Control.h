#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Values.h"

/// An object that a window owns and finds by name, visible or not.
class Control {
  public:
    virtual ~Control() = default;
};

/// A visible control. Its position, in logical pixels, is relative to the window's area below the menu bar.
class RectControl : public Control {
  public:
    struct Peer;

    ~RectControl() override;

    /// Called when the control's window opens, before the window's own Event_Open.
    std::function<void()> Open;

    Int32 Left() const;
    Int32 Top() const;
    void Top(Int32 top);
    Int32 Width() const;
    Int32 Height() const;
    void Bounds(Int32 left, Int32 top, Int32 width, Int32 height);

    /// Whether the control's edge keeps its distance from that edge of the window when the window is resized.
    Property<bool> LockLeft = false;
    Property<bool> LockTop = false;
    Property<bool> LockRight = false;
    Property<bool> LockBottom = false;

    /// Puts the control into the group with this name. A disabled group disables the controls in it.
    void InitialParent(const std::string& name);

    // Enabled and Visible may be set on any thread.
    bool Enabled() const;
    void Enabled(bool on);
    void Visible(bool on);

    /// The control's place in the tab order of the window or, for a control in a group, of the group.
    Property<Int32> TabIndex = 0;

    /// Returns whether the control's window is the active window of the desktop.
    bool Active() const;
    /// Returns the group that contains the control; nil if the control lies directly in its window.
    RectControl* Parent() const;

    /// Sets the name that screen readers use for a control that has neither a text of its own nor a label.
    virtual void AccessibleName(const std::string& name);

    /// Calls Open. A subclass that overrides this must call Open itself.
    virtual void Event_Open();

    void SetFocus();

    /// Requests a repaint, on any thread. All requests of one turn of the event loop cause one repaint.
    /// Painting is double-buffered, so `eraseBackground` makes no difference.
    void Refresh(bool eraseBackground);

    /// Only for use within platform/.
    Peer& peer() const { return *peer_; }

  protected:
    explicit RectControl(std::unique_ptr<Peer> peer);

  private:
    std::unique_ptr<Peer> peer_;
};
