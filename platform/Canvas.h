#pragma once

#include <functional>

#include "platform/Control.h"
#include "platform/Ref.h"

class Graphics;

/// A control that its owner paints. It never takes the keyboard focus.
class Canvas : public RectControl {
  public:
    Canvas();
    ~Canvas() override;

    /// Paints the whole canvas. What was there before has been cleared to the window's background.
    std::function<void(const Ref<::Graphics>&)> Paint;
    /// A press of the main button, also the second one of a double click; in the canvas's coordinates.
    std::function<bool(Int32 x, Int32 y)> MouseDown;
    /// The pointer moved over the canvas, with no button held.
    std::function<void(Int32 x, Int32 y)> MouseMove;

    /// The canvas's surface at any moment. While Paint runs it is the window's own; otherwise what is drawn is kept
    /// aside and shown beneath the next paint, which this call asks for.
    Ref<::Graphics> Graphics();
};
