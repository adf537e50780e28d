#include <QtWidgets/QProgressBar>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/MainThread.h"

ProgressBar::ProgressBar() : RectControl(std::make_unique<Peer>(new QProgressBar)) {
    auto& bar = WidgetOf<QProgressBar>(*this);
    bar.setTextVisible(false);
    bar.setValue(0);
}

void ProgressBar::Maximum(Int32 maximum) {
    auto& bar = WidgetOf<QProgressBar>(*this);
    OnMainThread(
        bar, [&bar, maximum] { bar.setRange(0, maximum); }, "Maximum");
}

Int32 ProgressBar::Value() const { return WidgetOf<QProgressBar>(*this).value(); }
void ProgressBar::Value(Int32 value) {
    auto& bar = WidgetOf<QProgressBar>(*this);
    OnMainThread(
        bar, [&bar, value] { bar.setValue(value); }, "Value");
}
