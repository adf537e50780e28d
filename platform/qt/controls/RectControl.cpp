#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/MainThread.h"
#include "platform/qt/window/WindowPeer.h"

namespace {

// Positions are the window's, wherever the control's widget lies within it.
QPoint OriginInWindow(const QWidget& widget) {
    const QWidget* content = &WindowPeer::Of(widget).Content();
    return widget.parentWidget() == content ? QPoint() : widget.parentWidget()->mapTo(content, QPoint());
}

}  // namespace

RectControl::RectControl(std::unique_ptr<Peer> peer) : peer_(std::move(peer)) {}

RectControl::~RectControl() = default;

Int32 RectControl::Left() const { return peer_->widget->x() + OriginInWindow(*peer_->widget).x(); }
Int32 RectControl::Top() const { return peer_->widget->y() + OriginInWindow(*peer_->widget).y(); }
void RectControl::Top(Int32 top) { Bounds(Left(), top, Width(), Height()); }

Int32 RectControl::Width() const { return peer_->widget->width(); }
Int32 RectControl::Height() const { return peer_->widget->height(); }

void RectControl::Bounds(Int32 left, Int32 top, Int32 width, Int32 height) {
    const QRect place(left, top, width, height);
    peer_->Place(place.translated(-OriginInWindow(*peer_->widget)));
}

void RectControl::InitialParent(const std::string& name) {
    const QRect place(Left(), Top(), Width(), Height());
    auto* group = WindowPeer::Of(*peer_->widget).Content().findChild<QWidget*>(QString::fromStdString(name));
    peer_->widget->setParent(group);
    Bounds(place.left(), place.top(), place.width(), place.height());
}

bool RectControl::Enabled() const { return peer_->widget->isEnabled(); }
void RectControl::Enabled(bool on) {
    QWidget& widget = *peer_->widget;
    OnMainThread(widget, [&widget, on] { widget.setEnabled(on); });
}

bool RectControl::Visible() const { return !peer_->widget->isHidden(); }
void RectControl::Visible(bool on) {
    QWidget& widget = *peer_->widget;
    OnMainThread(widget, [&widget, on] { widget.setVisible(on); });
}

bool RectControl::Active() const { return peer_->widget->isActiveWindow(); }

RectControl* RectControl::Parent() const {
    return WindowPeer::Of(*peer_->widget).Controls().Of(*peer_->widget->parentWidget());
}

void RectControl::AccessibleName(const std::string& name) {
    peer_->widget->setAccessibleName(QString::fromStdString(name));
}

void RectControl::Event_Open() {
    if (Open) Open();
}

void RectControl::SetFocus() { peer_->widget->setFocus(); }

void RectControl::Refresh(bool) {
    QWidget& widget = *peer_->widget;
    OnMainThread(
        widget, [&widget] { widget.update(); }, "Refresh");
}
