#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/MainThread.h"

namespace {

// A control's position is relative to the window; the widget's position in a group is relative to the group.
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
    peer_->Place(QRect(left, top, width, height).translated(-OriginInWindow(*this)));
}

void RectControl::InitialParent(const std::string& name) {
    const QPoint place(Left(), Top());
    peer_->widget->setParent(peer_->widget->window()->findChild<QWidget*>(ToQString(name)));
    Bounds(place.x(), place.y(), Width(), Height());
}

bool RectControl::Enabled() const { return peer_->widget->isEnabled(); }
void RectControl::Enabled(bool on) {
    OnMainThread(*peer_->widget, [this, on] { peer_->widget->setEnabled(on); });
}
void RectControl::Visible(bool on) {
    OnMainThread(*peer_->widget, [this, on] { peer_->widget->setVisible(on); });
}

bool RectControl::Active() const { return peer_->widget->isActiveWindow(); }
RectControl* RectControl::Parent() const { return ControlOf(*peer_->widget->parentWidget()); }

void RectControl::AccessibleName(const std::string& name) { peer_->widget->setAccessibleName(ToQString(name)); }

void RectControl::Event_Open() {
    if (Open) Open();
}

void RectControl::SetFocus() { peer_->widget->setFocus(); }

void RectControl::Refresh(bool) {
    OnMainThread(*peer_->widget, "Refresh", [this] { peer_->widget->update(); });
}
