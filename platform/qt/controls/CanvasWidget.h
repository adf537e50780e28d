#pragma once

#include <QtWidgets/QWidget>
#include <string>

#include "platform/Canvas.h"
#include "platform/Picture.h"

/// The widget of a canvas.
class CanvasWidget final : public QWidget {
  public:
    explicit CanvasWidget(Canvas& owner);

    Canvas& Owner() const { return owner_; }
    /// The surface of the paint event under way, or the one that keeps what is drawn in between.
    Ref<Graphics> CurrentGraphics();
    /// Runs a drag of `item` from here, the pointer holding it at `hold`.
    void Drag(const DragItem& item, QPoint hold);
    /// Where the pointer was last.
    QPoint Pointer() const { return pointer_; }
    /// Has a screen reader say a text once this event is over; of several the last.
    void Announce(const std::string& text);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void SetPointer(QPointF position);
    void Release(QPointF position);

    Canvas& owner_;
    /// The surface of the paint event under way; nil outside of one.
    Ref<Graphics> painting_;
    /// What was drawn outside of paint events; nil until something is.
    Ref<Picture> kept_;
    QPoint pointer_;
    /// A press is under way that the owner has claimed, and whether something was dragged away in it.
    bool isPressed_ = false;
    bool wasDragged_ = false;
    /// What is to be said; empty for nothing.
    std::string announcement_;
};
