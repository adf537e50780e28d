#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFrame>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/Keys.h"

namespace {

class FieldWidget final : public QLineEdit {
  public:
    explicit FieldWidget(EditField& owner) : owner_(owner) {
        // The layouts leave a field just the room that its text needs.
        setTextMargins(-kOwnMargin, 0, -kOwnMargin, 0);
        connect(this, &QLineEdit::textChanged, this, [this] {
            Fit();
            Deliver(owner_.TextChange);
        });
    }

  protected:
    // Here rather than in keyPressEvent, which never sees the Tab key.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::KeyPress && Consumes(*static_cast<QKeyEvent*>(event))) return true;
        return QLineEdit::event(event);
    }

    void resizeEvent(QResizeEvent* event) override {
        QLineEdit::resizeEvent(event);
        Fit();
    }

    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        // The field's own menu takes the focus only for the moment.
        if (event->reason() != Qt::PopupFocusReason) Deliver(owner_.LostFocus);
    }

  private:
    // What QLineEdit leaves free beside its text, besides the text margins.
    static constexpr int kOwnMargin = 2;

    void Fit() {
        QStyleOptionFrame option;
        initStyleOption(&option);
        constexpr int kCaretWidth = 1;
        QSize inside = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).size();
        inside.rwidth() -= kCaretWidth;
        constexpr int kSmallestSize = 10;  // a longer text scrolls
        setFont(FittedFont(FontNamed("System"), text(), inside, kSmallestSize));
    }

    bool Consumes(const QKeyEvent& event) {
        // Commands to somebody else; QLineEdit would take the key as typed.
        if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return true;
        const std::optional<std::string> key = KeyText(event);
        return key && Deliver(owner_.KeyDown, *key);
    }

    EditField& owner_;
};

}  // namespace

EditField::EditField() : RectControl(std::make_unique<Peer>(new FieldWidget(*this))) {}

std::string EditField::Text() const { return WidgetOf<FieldWidget>(*this).text().toStdString(); }
void EditField::Text(const std::string& text) { WidgetOf<FieldWidget>(*this).setText(QString::fromStdString(text)); }

void EditField::SelText(const std::string& text) { WidgetOf<FieldWidget>(*this).insert(QString::fromStdString(text)); }

void EditField::Alignment(TextAlignment alignment) {
    WidgetOf<FieldWidget>(*this).setAlignment(Horizontally(alignment) | Qt::AlignVCenter);
}
