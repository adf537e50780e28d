#include "platform/Canvas.h"

#include <QtCore/QMimeData>
#include <QtGui/QAccessible>
#include <QtGui/QDropEvent>

#include "platform/Host.h"
#include "platform/qt/controls/Accessibility.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Surfaces.h"
#include "platform/qt/events/EventBoundary.h"

namespace {

/// Accepts dropped text, only as a copy: after a move, its source would delete it. False if there is no text.
bool AcceptText(QDropEvent& event) {
    // hasText() is also true for a link to a file.
    if (!event.mimeData()->hasFormat(QStringLiteral("text/plain"))) return false;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return true;
}

class CanvasWidget final : public QWidget {
  public:
    explicit CanvasWidget(Canvas& owner) : owner_(owner) {
        setFocusPolicy(Qt::NoFocus);
        setMouseTracking(true);
    }

    /// Returns the surface of the current paint event; outside of paint events, that of the picture `kept_`.
    Ref<Graphics> CurrentGraphics() {
        if (painting_) return painting_;
        const double ratio = devicePixelRatioF();
        const bool fits = kept_ && kept_->pixels().logicalSize == size() && kept_->pixels().ratio == ratio;
        if (!fits) kept_ = NewPicture(width(), height(), 32, ratio);
        update();
        return kept_->Graphics();
    }

    /// Drags `item` and returns when it is dropped. `hold` is the pointer's position within the drag picture.
    void Drag(const DragItem& item, QPoint hold) {
        wasDragged_ = true;
        Host::Current().DragText(item.Text(), item.DragPicture(), hold.x(), hold.y());
    }

    /// Returns the pointer's position at the last mouse event.
    QPoint Pointer() const { return pointer_; }

  protected:
    void paintEvent(QPaintEvent*) override {
        const auto graphics = MakeRef<Graphics>(std::make_unique<Graphics::Peer>(*this));
        if (kept_) graphics->peer().Fill(kept_->pixels().View());
        painting_ = graphics;
        Deliver([this] { owner_.Event_Paint(painting_); });
        graphics->peer().painter.end();  // needed if the handler has kept a reference to the surface
        painting_ = nullptr;
    }

    // Repaints the canvas, which may look different in an inactive window.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate) update();
        return QWidget::event(event);
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        pointer_ = PixelAt(event->position());
        wasDragged_ = false;
        isPressed_ = Deliver([this] { return owner_.Event_MouseDown(pointer_.x(), pointer_.y()); });
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        pointer_ = PixelAt(event->position());
        const bool isHeld = event->buttons().testFlag(Qt::LeftButton);
        if (isPressed_ && isHeld) {
            Deliver([this] { owner_.Event_MouseDrag(pointer_.x(), pointer_.y()); });
            if (wasDragged_) Release(mapFromGlobal(QCursor::pos()));  // Qt sends no release after a drag
        } else if (event->buttons() == Qt::NoButton) {
            // A dialog that blocked the window may have swallowed the release: the press then ends outside.
            Release({-1, -1});
            pointer_ = PixelAt(event->position());
            Deliver(owner_.MouseMove, pointer_.x(), pointer_.y());
            event->ignore();  // so that the window gets the event too
        }
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) Release(event->position());
    }

    void dragEnterEvent(QDragEnterEvent* event) override { AcceptText(*event); }
    void dropEvent(QDropEvent* event) override {
        if (!AcceptText(*event)) return;
        const auto item = MakeRef<DragItem>();
        item->Text(event->mimeData()->text().toStdString());
        Deliver([&] { owner_.Event_DropObject(item, 0); });
    }

  private:
    void Release(QPointF position) {
        if (!std::exchange(isPressed_, false)) return;
        pointer_ = PixelAt(position);
        Deliver([this] { owner_.Event_MouseUp(pointer_.x(), pointer_.y()); });
    }

    Canvas& owner_;
    /// The surface of the current paint event; nil outside of paint events.
    Ref<Graphics> painting_;
    /// The picture of what was drawn outside of paint events; nil if nothing was drawn.
    Ref<Picture> kept_;
    QPoint pointer_;
    /// Whether the owner has claimed the current press, and whether a drag has run during the press.
    bool isPressed_ = false;
    bool wasDragged_ = false;
};

}  // namespace

Canvas::Canvas() : RectControl(std::make_unique<Peer>(new CanvasWidget(*this))) {}

// Deletes the widget first: while it lives, a screen reader may call the functions in Accessibility.
Canvas::~Canvas() { delete peer().widget; }

void Canvas::Event_Paint(const Ref<::Graphics>& g) {
    if (Paint) Paint(g);
}

bool Canvas::Event_MouseDown(Int32 x, Int32 y) { return MouseDown && MouseDown(x, y); }

void Canvas::AcceptTextDrop() { peer().widget->setAcceptDrops(true); }

Ref<DragItem> Canvas::NewDragItem(Int32 left, Int32 top, Int32, Int32) {
    auto& widget = WidgetOf<CanvasWidget>(*this);
    const QPoint hold = widget.Pointer() - QPoint(left - Left(), top - Top());
    return MakeRef<DragItem>([&widget, hold](const DragItem& item) { widget.Drag(item, hold); });
}

Ref<Graphics> Canvas::Graphics() { return WidgetOf<CanvasWidget>(*this).CurrentGraphics(); }

double Canvas::ScaleFactor() const { return peer().widget->devicePixelRatioF(); }

void Canvas::DescriptionChanged() {
    QAccessibleEvent changed(peer().widget, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

void Canvas::Announce(const std::string& text) {
    Host::Current().Announce(text, [canvas = QPointer(peer().widget)] {
        if (canvas) canvas->activateWindow();
    });
    Speak(*peer().widget, text);
}
