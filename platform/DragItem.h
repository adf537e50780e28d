#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/Ref.h"
#include "platform/Values.h"

class Picture;

/// A text that is dragged with the pointer: made by the control where the drag begins (Canvas::NewDragItem), handed to
/// the one where it ends.
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
