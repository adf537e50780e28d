#include "platform/Canvas.h"

#include <QtGui/QMouseEvent>

#include "platform/qt/EventBoundary.h"
#include "platform/qt/PainterGraphics.h"
#include "platform/qt/Pixels.h"
#include "platform/qt/RectControlPeer.h"
#include "platform/qt/WindowPeer.h"

namespace {

class CanvasWidget final : public QWidget {
  public:
    explicit CanvasWidget(Canvas& owner) : owner_(owner) {
        setFocusPolicy(Qt::NoFocus);
        setMouseTracking(true);
    }

    Ref<Graphics> CurrentGraphics() {
        if (painting_) return painting_;
        if (!kept_ || kept_->pixels().LogicalSize() != size()) {
            kept_ = MakeRef<Picture>(std::make_unique<Picture::Pixels>(size(), devicePixelRatioF()));
        }
        update();
        return kept_->Graphics();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const auto graphics = MakeRef<PainterGraphics>(*this, size());
        if (kept_) graphics->Fill(kept_->pixels().View());
        painting_ = graphics;
        Deliver(owner_.Paint, painting_);
        painting_ = nullptr;
        graphics->End();
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        Deliver(owner_.MouseDown, Floor(event->position().x()), Floor(event->position().y()));
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->buttons() != Qt::NoButton) return;
        const Int32 x = Floor(event->position().x());
        const Int32 y = Floor(event->position().y());
        Deliver(owner_.MouseMove, x, y);
        WindowPeer::Of(*this).MouseMoved(x + this->x(), y + this->y());
    }

  private:
    // The pixel that the pointer is in; rounding would move the right half of each to the next.
    static Int32 Floor(double position) { return ToInt32(std::floor(position)); }

    Canvas& owner_;
    /// The surface of the paint event under way; nil outside of one.
    Ref<Graphics> painting_;
    /// What was drawn outside of paint events; nil until something is.
    Ref<Picture> kept_;
};

}  // namespace

Canvas::Canvas() : RectControl(std::make_unique<Peer>(new CanvasWidget(*this))) {}

Canvas::~Canvas() = default;

Ref<Graphics> Canvas::Graphics() { return WidgetOf<CanvasWidget>(*this).CurrentGraphics(); }
