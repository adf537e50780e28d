#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/MainThread.h"

namespace {

// Positions are relative to the window even for a control in a group.
QPoint OriginInWindow(const RectControl& control) {
    const RectControl* group = control.Parent();
    return group ? QPoint(group->Left(), group->Top()) : QPoint();
}

}  // namespace

RectControl::RectControl(std::unique_ptr<Peer> peer) : peer_(std::move(peer)) {
    peer_->widget->setProperty(Peer::kControl, QVariant::fromValue(static_cast<void*>(this)));
}

RectControl::~RectControl() = default;

Int32 RectControl::Left() const { return peer_->widget->x() + OriginInWindow(*this).x(); }
Int32 RectControl::Top() const { return peer_->widget->y() + OriginInWindow(*this).y(); }
void RectControl::Top(Int32 top) { Bounds(Left(), top, Width(), Height()); }

Int32 RectControl::Width() const { return peer_->widget->width(); }
Int32 RectControl::Height() const { return peer_->widget->height(); }

void RectControl::Bounds(Int32 left, Int32 top, Int32 width, Int32 height) {
    const QRect place(left, top, width, height);
    peer_->Place(place.translated(-OriginInWindow(*this)));
}

void RectControl::InitialParent(const std::string& name) {
    const QRect place(Left(), Top(), Width(), Height());
    auto* group = peer_->widget->window()->findChild<QWidget*>(QString::fromStdString(name));
    peer_->widget->setParent(group);
    Bounds(place.left(), place.top(), place.width(), place.height());
}

bool RectControl::Enabled() const { return peer_->widget->isEnabled(); }
void RectControl::Enabled(bool on) {
    QWidget& widget = *peer_->widget;
    OnMainThread(widget, [&widget, on] { widget.setEnabled(on); });
}

void RectControl::Visible(bool on) {
    QWidget& widget = *peer_->widget;
    OnMainThread(widget, [&widget, on] { widget.setVisible(on); });
}

bool RectControl::Active() const { return peer_->widget->isActiveWindow(); }

RectControl* RectControl::Parent() const { return ControlOf(*peer_->widget->parentWidget()); }

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
