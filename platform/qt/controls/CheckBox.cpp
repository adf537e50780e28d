#include <QtWidgets/QCheckBox>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"

CheckBox::CheckBox() : RectControl(std::make_unique<Peer>(new QCheckBox)) {
    WidgetOf<QCheckBox>(*this).setFont(FontNamed("System"));
}

void CheckBox::Caption(const std::string& caption) {
    WidgetOf<QCheckBox>(*this).setText(QString::fromStdString(caption));
}

bool CheckBox::Value() const { return WidgetOf<QCheckBox>(*this).isChecked(); }
void CheckBox::Value(bool on) { WidgetOf<QCheckBox>(*this).setChecked(on); }
