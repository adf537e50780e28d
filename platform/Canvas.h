#pragma once

#include <optional>

#include "platform/Control.h"
#include "platform/Ref.h"

class Graphics;
class Picture;

/// How a canvas presents itself to screen readers. Its functions are called on the main thread, at any time.
struct Accessible {
    enum class Roles { Picture = 1, Button };
    Roles Role = Roles::Picture;
    std::function<std::string()> Description;  ///< returns the present state in words; may be empty
    std::function<void()> Press;               ///< acts like a click; empty if a click does nothing
};

/// A text that the user drags from a canvas, or drops on one.
class DragItem {
  public:
    /// Creates an item without text and picture. Drag() calls `drag`.
    explicit DragItem(std::function<void(const DragItem&)> drag = {}) : drag_(std::move(drag)) {}

    bool TextAvailable() const { return text_.has_value(); }
    std::string Text() const { return text_.value_or(""); }
    void Text(std::string text) { text_ = std::move(text); }

    /// The picture that is shown at the pointer during the drag; nil for the desktop's usual one.
    Property<Ref<Picture>> DragPicture;

    /// Runs the drag and returns when the user releases the button. The canvas then gets its mouse-up event.
    void Drag() const { drag_(*this); }

  private:
    std::optional<std::string> text_;
    std::function<void(const DragItem&)> drag_;
};

/// A control that its owner paints. It never takes the keyboard focus. Event positions are relative to it, in
/// logical pixels, and may lie outside it while the button is held.
class Canvas : public RectControl {
  public:
    Canvas();
    ~Canvas() override;

    /// Paints the whole canvas, which has been cleared to the window's background.
    std::function<void(const Ref<::Graphics>&)> Paint;
    /// Called when the main button is pressed, on both presses of a double click. True claims the press.
    std::function<bool(Int32 x, Int32 y)> MouseDown;
    /// Called when the pointer moves over the canvas while no button is held.
    std::function<void(Int32 x, Int32 y)> MouseMove;

    // Event_Paint calls Paint and Event_MouseDown calls MouseDown; an override must do so itself.
    virtual void Event_Paint(const Ref<::Graphics>& g);
    /// Returns true to claim the press: then drag events follow while the button is held, and one up event.
    virtual bool Event_MouseDown(Int32 x, Int32 y);
    virtual void Event_MouseDrag(Int32, Int32) {}
    virtual void Event_MouseUp(Int32, Int32) {}
    /// Called when a text is dropped on the canvas. The action is always 0: every drop is a copy.
    virtual void Event_DropObject(const Ref<DragItem>&, Int32) {}

    /// Makes the canvas accept dropped texts from now on.
    void AcceptTextDrop();
    /// Returns an empty item to drag. Its picture starts at (`left`, `top`) in the window's coordinates.
    Ref<DragItem> NewDragItem(Int32 left, Int32 top, Int32 width, Int32 height);

    Accessible Accessibility;
    /// Tells screen readers that a cached description is invalid. Nothing is spoken.
    void DescriptionChanged();
    /// Makes an active screen reader speak a text; of several calls during one event, only the last counts.
    /// Host::Beep may show the text in a notification.
    void Announce(const std::string& text);

    /// Returns the surface to draw on: the window's own during a paint event. At any other time, requests a
    /// repaint and returns the surface of a picture that the canvas keeps and shows beneath later paints.
    Ref<::Graphics> Graphics();
    /// Returns the number of device pixels per logical pixel, along each axis.
    double ScaleFactor() const;
};
