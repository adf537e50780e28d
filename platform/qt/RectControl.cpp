#include "platform/qt/RectControlPeer.h"

RectControl::RectControl(std::unique_ptr<Peer> peer) : peer_(std::move(peer)) {}

RectControl::~RectControl() = default;

Int32 RectControl::Left() const { return peer_->widget->x(); }
void RectControl::Left(Int32 left) { peer_->widget->move(left, Top()); }

Int32 RectControl::Top() const { return peer_->widget->y(); }
void RectControl::Top(Int32 top) { peer_->widget->move(Left(), top); }

Int32 RectControl::Width() const { return peer_->widget->width(); }
void RectControl::Width(Int32 width) { peer_->widget->resize(width, Height()); }

Int32 RectControl::Height() const { return peer_->widget->height(); }
void RectControl::Height(Int32 height) { peer_->widget->resize(Width(), height); }

void RectControl::Bounds(Int32 left, Int32 top, Int32 width, Int32 height) {
    peer_->widget->setGeometry(left, top, width, height);
}

void RectControl::SetFocus() { peer_->widget->setFocus(); }

void RectControl::Refresh(bool) { peer_->widget->update(); }
