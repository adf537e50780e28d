#include <QtWidgets/QGroupBox>

#include "platform/Controls.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/RectControlPeer.h"

GroupBox::GroupBox() : RectControl(std::make_unique<Peer>(new QGroupBox)) {
    WidgetOf<QGroupBox>(*this).setFont(FontNamed("System"));
}

void GroupBox::Caption(const std::string& caption) {
    WidgetOf<QGroupBox>(*this).setTitle(QString::fromStdString(caption));
}
