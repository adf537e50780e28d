#include <QtWidgets/QLineEdit>

#include "platform/Controls.h"
#include "platform/qt/EventBoundary.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/Keys.h"
#include "platform/qt/RectControlPeer.h"

namespace {

class FieldWidget final : public QLineEdit {
  public:
    explicit FieldWidget(EditField& owner) : owner_(owner) { setFont(FontNamed("System")); }

  protected:
    // Here rather than in keyPressEvent, which never sees the Tab key.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::KeyPress && Consumes(*static_cast<QKeyEvent*>(event))) return true;
        return QLineEdit::event(event);
    }

    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        // The field's own menu takes the focus only for the moment.
        if (event->reason() != Qt::PopupFocusReason) Deliver(owner_.LostFocus);
    }

  private:
    bool Consumes(const QKeyEvent& event) {
        const std::string key = KeyText(event);
        return !key.empty() && Deliver(owner_.KeyDown, key);
    }

    EditField& owner_;
};

}  // namespace

EditField::EditField() : RectControl(std::make_unique<Peer>(new FieldWidget(*this))) {
}

std::string EditField::Text() const {
    return WidgetOf<FieldWidget>(*this).text().toStdString();
}
void EditField::Text(const std::string& text) {
    WidgetOf<FieldWidget>(*this).setText(QString::fromStdString(text));
}

void EditField::SelText(const std::string& text) {
    WidgetOf<FieldWidget>(*this).insert(QString::fromStdString(text));
}

void EditField::Alignment(TextAlignment alignment) {
    const auto horizontal = alignment == TextAlignment::Left     ? Qt::AlignLeft
                            : alignment == TextAlignment::Centre ? Qt::AlignHCenter
                                                                 : Qt::AlignRight;
    WidgetOf<FieldWidget>(*this).setAlignment(horizontal | Qt::AlignVCenter);
}
