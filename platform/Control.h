#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Values.h"

/// What a window owns and finds by name.
class Control {
  public:
    virtual ~Control() = default;
};

/// A control that is seen: a rectangle in its window. Positions are logical pixels below the menu bar.
class RectControl : public Control {
  public:
    struct Peer;

    ~RectControl() override;

    /// Called when the control's window is being opened, before the window's own event.
    std::function<void()> Open;

    Int32 Left() const;
    Int32 Top() const;
    void Top(Int32 top);
    Int32 Width() const;
    Int32 Height() const;
    void Bounds(Int32 left, Int32 top, Int32 width, Int32 height);

    /// Edges of the window that the control's own edges follow when the window's size changes.
    Property<bool> LockLeft = false;
    Property<bool> LockTop = false;
    Property<bool> LockRight = false;
    Property<bool> LockBottom = false;

    /// The group that the control lies in, by name. A disabled group disables what lies in it.
    void InitialParent(const std::string& name);

    // These two may be set on any thread.
    bool Enabled() const;
    void Enabled(bool on);
    void Visible(bool on);

    /// The place in the order in which the Tab key goes through the window.
    Property<Int32> TabIndex = 0;

    /// Whether the control's window is the one that the user works in.
    bool Active() const;
    /// The group that the control lies in; nil when it lies directly in its window.
    RectControl* Parent() const;

    /// What a screen reader calls the control, where neither its own text nor a label does.
    virtual void AccessibleName(const std::string& name);

    /// For subclasses to override; an override must call the owner's function itself.
    virtual void Event_Open();

    void SetFocus();

    /// Asks for a repaint, on any thread; several requests make one, with the next turn of the event loop. An
    /// erased background never shows, so both values of `eraseBackground` look the same.
    void Refresh(bool eraseBackground);

    /// For platform/ alone.
    Peer& peer() const { return *peer_; }

  protected:
    explicit RectControl(std::unique_ptr<Peer> peer);

  private:
    std::unique_ptr<Peer> peer_;
};
