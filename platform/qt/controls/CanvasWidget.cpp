#include "platform/qt/controls/CanvasWidget.h"

#include <QtCore/QMimeData>
#include <QtGui/QCursor>
#include <QtGui/QDropEvent>
#include <QtGui/QMouseEvent>
#include <cmath>
#include <utility>

#include "platform/DragItem.h"
#include "platform/Host.h"
#include "platform/qt/controls/CanvasAccessible.h"
#include "platform/qt/drawing/PainterGraphics.h"
#include "platform/qt/drawing/Pixels.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/window/WindowPeer.h"

namespace {

// The toolkit also makes a text of what is only a link to a file.
bool IsText(const QMimeData& data) { return data.hasFormat(QStringLiteral("text/plain")); }

}  // namespace

CanvasWidget::CanvasWidget(Canvas& owner) : owner_(owner) {
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
}

Ref<Graphics> CanvasWidget::CurrentGraphics() {
    if (painting_) return painting_;
    if (!kept_ || kept_->pixels().LogicalSize() != size() || kept_->pixels().Ratio() != devicePixelRatioF()) {
        kept_ = NewPicture(width(), height(), 32, devicePixelRatioF());
    }
    update();
    return kept_->Graphics();
}

void CanvasWidget::paintEvent(QPaintEvent*) {
    const auto graphics = MakeRef<PainterGraphics>(*this);
    if (kept_) graphics->Fill(kept_->pixels().View());
    painting_ = graphics;
    Deliver([this] { owner_.Event_Paint(painting_); });
    painting_ = nullptr;
    graphics->End();
}

// Whether its window is the active one may show in a canvas's look.
bool CanvasWidget::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate) update();
    return QWidget::event(event);
}

void CanvasWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    SetPointer(event->position());
    wasDragged_ = false;
    isPressed_ = Deliver([this] { return owner_.Event_MouseDown(pointer_.x(), pointer_.y()); });
}

void CanvasWidget::mouseMoveEvent(QMouseEvent* event) {
    SetPointer(event->position());
    const bool isHeld = event->buttons().testFlag(Qt::LeftButton);
    if (isPressed_ && isHeld) {
        Deliver([this] { owner_.Event_MouseDrag(pointer_.x(), pointer_.y()); });
        if (wasDragged_) Release(mapFromGlobal(QCursor::pos()));  // the drag has taken the button's release
    } else if (event->buttons() == Qt::NoButton) {
        constexpr QPointF kOutside(-1, -1);
        Release(kOutside);  // the real one is lost when the window was blocked by then
        SetPointer(event->position());
        Deliver(owner_.MouseMove, pointer_.x(), pointer_.y());
        WindowPeer::Of(*this).MouseMoved(pointer_.x() + x(), pointer_.y() + y());
    }
}

void CanvasWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Release(event->position());
}

void CanvasWidget::Drag(const DragItem& item, QPoint hold) {
    wasDragged_ = true;
    Host::Current().DragText(item.Text(), item.DragPicture(), hold.x(), hold.y());
}

// A source that offers to move its text would lose it.
void CanvasWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (!IsText(*event->mimeData())) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void CanvasWidget::dropEvent(QDropEvent* event) {
    if (!IsText(*event->mimeData())) return;
    const auto item = MakeRef<DragItem>();
    item->Text(event->mimeData()->text().toStdString());
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Deliver([&] { owner_.Event_DropObject(item, 0); });
}

// The pixel that the pointer is in; rounding would move the right half of each to the next.
void CanvasWidget::SetPointer(QPointF position) {
    pointer_ = {ToInt32(std::floor(position.x())), ToInt32(std::floor(position.y()))};
}

void CanvasWidget::Release(QPointF position) {
    if (!std::exchange(isPressed_, false)) return;
    SetPointer(position);
    Deliver([this] { owner_.Event_MouseUp(pointer_.x(), pointer_.y()); });
}

void CanvasWidget::Announce(const std::string& text) {
    const auto say = [this] { CanvasAccessible::Say(*this, std::exchange(announcement_, "")); };
    if (std::exchange(announcement_, text).empty()) QMetaObject::invokeMethod(this, say, Qt::QueuedConnection);
}
