#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/Control.h"
#include "platform/Ref.h"

class Graphics;
class Picture;

/// What a canvas tells a screen reader, which may ask at any moment on the main thread; nil for what it hasn't.
struct Accessible {
    enum class Roles { Picture = 1, Button };
    Roles Role = Roles::Picture;
    /// The present state in words.
    std::function<std::string()> Description;
    /// Does what a click does.
    std::function<void()> Press;
};

/// A text that is dragged with the pointer: made by the canvas where the drag begins, handed to the one where it ends.
class DragItem {
  public:
    /// `drag` carries out Drag().
    explicit DragItem(std::function<void(const DragItem&)> drag = {}) : drag_(std::move(drag)) {}

    bool TextAvailable() const { return text_.has_value(); }
    /// Empty when there is none.
    std::string Text() const { return text_.value_or(""); }
    void Text(std::string text) { text_ = std::move(text); }

    /// What the pointer carries, in the place of the item's rectangle; nil for the desktop's own look.
    Property<Ref<Picture>> DragPicture;

    /// Runs the drag, and returns when the user has let go. The press that began it is over then.
    void Drag() const { drag_(*this); }

  private:
    std::optional<std::string> text_;
    std::function<void(const DragItem&)> drag_;
};

/// A control that its owner paints. It never takes the keyboard focus. Positions in its events are its own coordinates,
/// and may lie outside of it while the button is held.
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

    // The same for a canvas of a class of its own, which raises the events of its owner itself.
    virtual void Event_Paint(const Ref<::Graphics>& g);
    /// True claims the press: drag events follow while the button is held, and one up event.
    virtual bool Event_MouseDown(Int32 x, Int32 y);
    virtual void Event_MouseDrag(Int32, Int32) {}
    virtual void Event_MouseUp(Int32, Int32) {}
    /// A text was dropped here. The action tells nothing: all drops are copies.
    virtual void Event_DropObject(const Ref<DragItem>&, Int32) {}

    /// From now on texts can be dropped on the canvas.
    void AcceptTextDrop();
    /// An item to be dragged, without text and picture yet. The rectangle that moves is in the window's coordinates.
    Ref<DragItem> NewDragItem(Int32 left, Int32 top, Int32 width, Int32 height);

    /// What a screen reader is told when it asks.
    Accessible Accessibility;
    /// Tells a screen reader, which may keep what it was told, that the description has changed; it says nothing then.
    void DescriptionChanged();
    /// Has a screen reader say a text unasked, where there is one; of several in one event the last. Host::Beep
    /// tells it as well.
    void Announce(const std::string& text);

    /// The canvas's surface at any moment. While Paint runs it is the window's own; otherwise what is drawn is kept
    /// aside and shown beneath the next paint, which this call asks for.
    Ref<::Graphics> Graphics();
    /// How many pixels of the screen a logical one is, either way.
    double ScaleFactor() const;
};
