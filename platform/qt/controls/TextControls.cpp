#include <QtGui/QAccessible>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyleOptionFrame>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/QTextEdit>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/Keys.h"

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
    /// Sets a public member and fits the font again.
    template <class Value>
    void Set(Value LabelWidget::*member, const Value& value) {
        this->*member = value;
        Fit();
    }

    std::string fontName = "System";
    Int32 pixelSize = 0;
    bool isBold = false;

  protected:
    void resizeEvent(QResizeEvent*) override { Fit(); }

  private:
    void Fit() {
        QFont font = FontNamed(fontName, pixelSize);
        font.setBold(isBold);
        setFont(FittedFont(font, text(), size()));
    }
};

class FieldWidget final : public QLineEdit {
  public:
    explicit FieldWidget(EditField& owner) : owner_(owner) {
        // Cancels QLineEdit's own margin, because the program's layouts leave no room for it.
        setTextMargins(-kOwnMargin, 0, -kOwnMargin, 0);
        connect(this, &QLineEdit::textChanged, this, [this] {
            Fit();
            Deliver(owner_.TextChange);
        });
        connect(this, &QLineEdit::cursorPositionChanged, this, [this] { showsHead_ = false; });
    }

    /// Shows the beginning of a text until the user moves the caret, which is at the end of the text.
    void Show(const QString& newText) {
        const bool isNew = newText != text();
        setText(newText);
        if (isNew) showsHead_ = true;
    }

  protected:
    // Keys are handled here, because keyPressEvent never gets the Tab key.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::KeyPress && Consumes(*static_cast<QKeyEvent*>(event))) return true;
        return QLineEdit::event(event);
    }

    // An on-screen keyboard commits text instead of pressing keys, so each committed character is handled as
    // a key press. Preedit text would replace the selection, so a field with a KeyDown handler shows none.
    void inputMethodEvent(QInputMethodEvent* event) override {
        const std::u32string typed = event->commitString().toStdU32String();
        QInputMethodEvent rest =
            owner_.KeyDown ? QInputMethodEvent() : QInputMethodEvent(event->preeditString(), event->attributes());
        rest.setCommitString(QString(), event->replacementStart(), event->replacementLength());
        if (!rest.preeditString().isEmpty()) showsHead_ = false;
        QLineEdit::inputMethodEvent(&rest);
        for (const char32_t character : typed) {
            const QString text = QString::fromUcs4(&character, 1);
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
            FieldWidget::event(&press);
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_End) showsHead_ = false;  // the caret is already there and doesn't move
        QLineEdit::keyPressEvent(event);
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (showsHead_ && event->button() != Qt::RightButton) {
            home(false);
            repaint();  // QLineEdit scrolls in paintEvent, and must do so before it maps the position
        }
        QLineEdit::mousePressEvent(event);
    }

    // Draws the beginning of the text where QLineEdit would scroll to the caret.
    void paintEvent(QPaintEvent* event) override {
        const QRect inside = Inside();
        if (!showsHead_ || fontMetrics().horizontalAdvance(text()) <= inside.width())
            return QLineEdit::paintEvent(event);
        QStylePainter painter(this);
        QStyleOptionFrame frame;
        initStyleOption(&frame);
        painter.drawPrimitive(QStyle::PE_PanelLineEdit, frame);
        QRect line(0, 0, inside.width(), fontMetrics().height());
        line.moveCenter(inside.center());
        const bool isSelected = hasSelectedText();  // then all text is selected, as the caret is at its end
        if (isSelected) painter.fillRect(line, palette().highlight());
        painter.setPen(palette().color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        painter.setClipRect(line);
        painter.drawText(line, Qt::AlignLeft, text());
    }

    void resizeEvent(QResizeEvent* event) override {
        QLineEdit::resizeEvent(event);
        Fit();
    }

    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        // Opening the field's context menu doesn't count as losing the focus.
        if (event->reason() != Qt::PopupFocusReason) Deliver(owner_.LostFocus);
    }

  private:
    // The space that QLineEdit leaves on each side of its text, in addition to the text margins.
    static constexpr int kOwnMargin = 2;

    QRect Inside() const {
        QStyleOptionFrame option;
        initStyleOption(&option);
        const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
        constexpr int kCaretWidth = 1;
        return contents.adjusted(0, 0, -kCaretWidth, 0);
    }

    void Fit() {
        constexpr int kSmallestSize = 10;  // a text that is still too long scrolls
        setFont(FittedFont(FontNamed("System"), text(), Inside().size(), kSmallestSize));
    }

    bool Consumes(const QKeyEvent& event) {
        // Consumes a key pressed with Alt or Meta, because QLineEdit would insert the key's character.
        if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return true;
        const std::optional<std::string> key = KeyText(event);
        return key && Deliver(owner_.KeyDown, *key);
    }

    EditField& owner_;
    /// Whether the text's beginning shows: the program has set the text, and the caret hasn't moved since.
    bool showsHead_ = false;
};

// Returns a format without a font family, so that the field's family applies.
QTextCharFormat FormatOf(const TextStyle& style) {
    QTextCharFormat format;
    format.setProperty(QTextFormat::FontPixelSize, FontNamed("System", style.size).pixelSize());
    format.setFontWeight(style.isBold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(style.isItalic);
    return format;
}

class TextViewWidget final : public QTextEdit {
  public:
    TextViewWidget() {
        setReadOnly(true);
        setTabChangesFocus(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFont(FontNamed("System"));
    }

    void Show(const StyledText& text) {
        clear();
        QTextCursor end(document());
        for (const StyleRun& run : text)
            end.insertText(ToQString(run.text), FormatOf(run.style));
        setTextCursor(QTextCursor(document()));
    }

  protected:
    // Without a caret, the arrow keys scroll. A screen reader gets a caret, because it reads the text there.
    void focusInEvent(QFocusEvent* event) override {
        Qt::TextInteractionFlags flags = Qt::TextSelectableByMouse;
        if (QAccessible::isActive()) flags |= Qt::TextSelectableByKeyboard;
        setTextInteractionFlags(flags);
        QTextEdit::focusInEvent(event);
    }
};

LabelWidget& Label(const StaticText& text) { return WidgetOf<LabelWidget>(text); }
FieldWidget& Field(const EditField& field) { return WidgetOf<FieldWidget>(field); }
TextViewWidget& TextView(const StyledTextField& field) { return WidgetOf<TextViewWidget>(field); }

Qt::Alignment ToQAlignment(TextAlignment alignment) {
    if (alignment == TextAlignment::Left) return Qt::AlignVCenter | Qt::AlignLeft;
    return Qt::AlignVCenter | (alignment == TextAlignment::Right ? Qt::AlignRight : Qt::AlignHCenter);
}

void SetColor(RectControl& field, QPalette::ColorRole role, Color color) {
    QPalette colors = field.peer().widget->palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        colors.setColor(group, role, ToQColor(color));
    field.peer().widget->setPalette(colors);
}

}  // namespace

StaticText::StaticText() : RectControl(std::make_unique<Peer>(new LabelWidget)) {}

void StaticText::Text(const std::string& text) { Label(*this).SetText(ToQString(text).replace(u'\r', u'\n')); }
void StaticText::TextFont(const std::string& name) { Label(*this).Set(&LabelWidget::fontName, name); }
void StaticText::TextSize(Int32 size) { Label(*this).Set(&LabelWidget::pixelSize, size); }
void StaticText::Bold(bool on) { Label(*this).Set(&LabelWidget::isBold, on); }
void StaticText::TextAlign(TextAlignment alignment) { Label(*this).setAlignment(ToQAlignment(alignment)); }
void StaticText::LabelFor(const RectControl& control) { Label(*this).setBuddy(control.peer().widget); }

EditField::EditField() : RectControl(std::make_unique<Peer>(new FieldWidget(*this))) {}

std::string EditField::Text() const { return Field(*this).text().toStdString(); }
void EditField::Text(const std::string& text) { Field(*this).Show(ToQString(text)); }
void EditField::SelText(const std::string& text) { Field(*this).insert(ToQString(text)); }
void EditField::Alignment(TextAlignment alignment) { Field(*this).setAlignment(ToQAlignment(alignment)); }
void EditField::TextColor(Color color) { SetColor(*this, QPalette::Text, color); }
void EditField::BackColor(Color color) { SetColor(*this, QPalette::Base, color); }

StyledTextField::StyledTextField() : RectControl(std::make_unique<Peer>(new TextViewWidget)) {}

std::string StyledTextField::Text() const { return TextView(*this).toPlainText().replace(u'\n', u'\r').toStdString(); }
void StyledTextField::Text(const std::string& text) { StyledText({{text, {false, false, TextSize()}}}); }
void StyledTextField::StyledText(const ::StyledText& text) { TextView(*this).Show(text); }
Int32 StyledTextField::TextSize() const { return TextView(*this).font().pixelSize(); }
void StyledTextField::TextSize(Int32 size) {
    TextView(*this).setFont(FontNamed(TextView(*this).font().family().toStdString(), size));
}
void StyledTextField::TextFont(const std::string& name) { TextView(*this).setFont(FontNamed(name, TextSize())); }
void StyledTextField::TextColor(Color color) { SetColor(*this, QPalette::Text, color); }
void StyledTextField::BackColor(Color color) { SetColor(*this, QPalette::Base, color); }
