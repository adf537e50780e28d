#include <QtWidgets/QLabel>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Alignment.h"
#include "platform/qt/drawing/FittedText.h"
#include "platform/qt/drawing/Fonts.h"

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
    void SetFontName(const std::string& name) {
        fontName_ = name;
        Fit();
    }
    void SetSize(Int32 size) {
        size_ = size;
        Fit();
    }
    void SetBold(bool on) {
        isBold_ = on;
        Fit();
    }

  protected:
    void resizeEvent(QResizeEvent*) override { Fit(); }

  private:
    void Fit() {
        QFont font = FontNamed(fontName_, size_);
        font.setBold(isBold_);
        setFont(FittedFont(font, text(), size()));
    }

    std::string fontName_ = "System";
    Int32 size_ = 0;
    bool isBold_ = false;
};

}  // namespace

StaticText::StaticText() : RectControl(std::make_unique<Peer>(new LabelWidget)) {}

std::string StaticText::Text() const { return WidgetOf<LabelWidget>(*this).text().replace(u'\n', u'\r').toStdString(); }
void StaticText::Text(const std::string& text) {
    WidgetOf<LabelWidget>(*this).SetText(QString::fromStdString(text).replace(u'\r', u'\n'));
}

void StaticText::TextFont(const std::string& name) { WidgetOf<LabelWidget>(*this).SetFontName(name); }
void StaticText::TextSize(Int32 size) { WidgetOf<LabelWidget>(*this).SetSize(size); }
void StaticText::Bold(bool on) { WidgetOf<LabelWidget>(*this).SetBold(on); }

void StaticText::LabelFor(const RectControl& control) { WidgetOf<LabelWidget>(*this).setBuddy(control.peer().widget); }

void StaticText::TextAlign(TextAlignment alignment) {
    WidgetOf<LabelWidget>(*this).setAlignment(Horizontally(alignment) | Qt::AlignVCenter);
}
