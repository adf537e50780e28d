#pragma once

#include <optional>

#include "platform/Control.h"
#include "platform/Ref.h"

class Graphics;
class Picture;

/// What a screen reader is told. Either function may be empty; each is called at any time on the main thread.
struct Accessible {
    enum class Roles { Picture = 1, Button };
    Roles Role = Roles::Picture;
    std::function<std::string()> Description;  ///< the present state in words
    std::function<void()> Press;               ///< what a click does; empty where it does nothing
};

/// A text that is dragged with the pointer from one canvas to another.
class DragItem {
  public:
    /// `drag` carries out Drag().
    explicit DragItem(std::function<void(const DragItem&)> drag = {}) : drag_(std::move(drag)) {}

    bool TextAvailable() const { return text_.has_value(); }
    /// Empty when there is none.
    std::string Text() const { return text_.value_or(""); }
    void Text(std::string text) { text_ = std::move(text); }

    /// The picture that moves with the pointer instead of the rectangle; nil for the desktop's usual one.
    Property<Ref<Picture>> DragPicture;

    /// Runs the drag. It returns when the button was let go, which also ends the press that began the drag.
    void Drag() const { drag_(*this); }

  private:
    std::optional<std::string> text_;
    std::function<void(const DragItem&)> drag_;
};

/// A control that its owner paints. It never takes the keyboard focus. Positions in its events are its own
/// coordinates, and may lie outside of it while the button is held.
class Canvas : public RectControl {
  public:
    Canvas();
    ~Canvas() override;

    /// Paints the whole canvas. What was there before has been cleared to the window's background.
    std::function<void(const Ref<::Graphics>&)> Paint;
    /// A press of the main button, also the second one of a double click.
    std::function<bool(Int32 x, Int32 y)> MouseDown;
    /// The pointer moved over the canvas, with no button held.
    std::function<void(Int32 x, Int32 y)> MouseMove;

    // For subclasses to override; an override must call the owner's function itself.
    virtual void Event_Paint(const Ref<::Graphics>& g);
    /// True claims the press: drag events follow while the button is held, and one up event.
    virtual bool Event_MouseDown(Int32 x, Int32 y);
    virtual void Event_MouseDrag(Int32, Int32) {}
    virtual void Event_MouseUp(Int32, Int32) {}
    /// A text was dropped here. The action is always 0, because all drops are copies.
    virtual void Event_DropObject(const Ref<DragItem>&, Int32) {}

    /// Lets texts be dropped on the canvas from now on.
    void AcceptTextDrop();
    /// An item to be dragged, without text and picture so far. The rectangle is in the window's coordinates.
    Ref<DragItem> NewDragItem(Int32 left, Int32 top, Int32 width, Int32 height);

    /// How screen readers see the canvas.
    Accessible Accessibility;
    /// Invalidates the description that a screen reader may have cached. Nothing is spoken.
    void DescriptionChanged();
    /// Has an active screen reader speak a text; of several in one event, the last. Host::Beep may show it, too.
    void Announce(const std::string& text);

    /// The canvas's surface: while Paint runs, the window's own; at any other moment a picture, which is kept
    /// and shown beneath all later paints. The call asks for a repaint.
    Ref<::Graphics> Graphics();
    /// The width, and height, of a logical pixel in pixels of the screen.
    double ScaleFactor() const;
};
