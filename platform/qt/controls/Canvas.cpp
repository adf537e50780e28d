#include "platform/Canvas.h"

#include "platform/DragItem.h"
#include "platform/qt/controls/CanvasAccessible.h"
#include "platform/qt/controls/CanvasWidget.h"
#include "platform/qt/controls/RectControlPeer.h"

Canvas::Canvas() : RectControl(std::make_unique<Peer>(new CanvasWidget(*this))) {}

Canvas::~Canvas() = default;

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

void Canvas::DescriptionChanged() { CanvasAccessible::TellChange(WidgetOf<CanvasWidget>(*this)); }

void Canvas::Announce(const std::string& text) { WidgetOf<CanvasWidget>(*this).Announce(text); }
