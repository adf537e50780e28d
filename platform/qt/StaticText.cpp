#include <QtWidgets/QLabel>

#include "platform/Controls.h"
#include "platform/qt/Alignment.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/RectControlPeer.h"

namespace {

class LabelWidget final : public QLabel {
  public:
    LabelWidget() {
        setTextFormat(Qt::PlainText);
        setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }

    void SetText(const QString& text) {
        setText(text);
        Fit();
    }
    void SetFont(const QFont& font) {
        wanted_ = font;
        Fit();
    }

  protected:
    void resizeEvent(QResizeEvent*) override { Fit(); }

  private:
    void Fit() { setFont(FittedFont(wanted_, text(), size())); }

    QFont wanted_ = FontNamed("System");
};

}  // namespace

StaticText::StaticText() : RectControl(std::make_unique<Peer>(new LabelWidget)) {}

std::string StaticText::Text() const { return WidgetOf<LabelWidget>(*this).text().toStdString(); }
void StaticText::Text(const std::string& text) { WidgetOf<LabelWidget>(*this).SetText(QString::fromStdString(text)); }

void StaticText::TextFont(const std::string& name) { WidgetOf<LabelWidget>(*this).SetFont(FontNamed(name)); }

void StaticText::TextAlign(TextAlignment alignment) {
    WidgetOf<LabelWidget>(*this).setAlignment(Horizontally(alignment) | Qt::AlignVCenter);
}
