#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QToolButton>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/MainThread.h"

namespace {

class ButtonWidget final : public QPushButton {
  public:
    ButtonWidget() {
        setFocusPolicy(Qt::TabFocus);  // a click doesn't move the focus
        connect(qApp, &QApplication::focusChanged, this, [this] { update(); });
    }

    void SetCaption(const QString& caption) {
        setText(caption);
        Fit();
    }

  protected:
    // Draws the default button as an ordinary one while Return would press another button, the focused one.
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        const bool isOtherFocused = !hasFocus() && qobject_cast<QPushButton*>(window()->focusWidget());
        if (isOtherFocused) option->features &= ~QStyleOptionButton::DefaultButton;
    }
    void resizeEvent(QResizeEvent*) override { Fit(); }

  private:
    void Fit() {
        QStyleOptionButton option;
        initStyleOption(&option);
        const QRect inside = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
        setFont(FittedFont(FontNamed("System"), text(), inside.size()));
    }
};

class ArrowButton final : public QToolButton {
  public:
    ArrowButton(QWidget& pair, Qt::ArrowType arrow, const std::function<void()>& event) : QToolButton(&pair) {
        setArrowType(arrow);
        setFocusPolicy(Qt::NoFocus);
        setAutoRepeat(true);
        setAutoRepeatDelay(400);
        setAutoRepeatInterval(100);
        connect(this, &QToolButton::pressed, this, [&event] { Deliver(event); });
    }
};

class ArrowsWidget final : public QWidget {
  public:
    explicit ArrowsWidget(const UpDownArrows& owner)
        : up_(*this, Qt::UpArrow, owner.Up), down_(*this, Qt::DownArrow, owner.Down) {}

    void SetName(const QString& name) {
        up_.setAccessibleName(name + QStringLiteral(" up"));
        down_.setAccessibleName(name + QStringLiteral(" down"));
    }

  protected:
    void resizeEvent(QResizeEvent*) override {
        const int middle = height() / 2;
        up_.setGeometry(0, 0, width(), middle);
        down_.setGeometry(0, middle, width(), height() - middle);
    }

  private:
    ArrowButton up_;
    ArrowButton down_;
};

/// A group box that moves the focus to its window while disabled, and back afterwards. Qt would focus the
/// next control, and an accidental Return could press a button there.
class GroupWidget final : public QGroupBox {
  public:
    GroupWidget() {
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (isAncestorOf(now)) lastFocused_ = now;
        });
    }

  protected:
    void changeEvent(QEvent* event) override {
        QGroupBox::changeEvent(event);
        if (event->type() != QEvent::EnabledChange) return;
        if (!isEnabled()) {
            window()->setFocus();
        } else if (lastFocused_ && window()->focusWidget() == window()) {
            lastFocused_->setFocus();
        }
    }

  private:
    QPointer<QWidget> lastFocused_;
};

QProgressBar& Bar(const ProgressBar& control) { return WidgetOf<QProgressBar>(control); }

}  // namespace

PushButton::PushButton() : RectControl(std::make_unique<Peer>(new ButtonWidget)) {
    auto& button = WidgetOf<ButtonWidget>(*this);
    QObject::connect(&button, &QPushButton::clicked, &button, [this] { Deliver(Action); });
}

void PushButton::Caption(const std::string& caption) { WidgetOf<ButtonWidget>(*this).SetCaption(ToQString(caption)); }
bool PushButton::Default() const { return WidgetOf<ButtonWidget>(*this).isDefault(); }
void PushButton::Default(bool on) { WidgetOf<ButtonWidget>(*this).setDefault(on); }

CheckBox::CheckBox() : RectControl(std::make_unique<Peer>(new QCheckBox)) {
    WidgetOf<QCheckBox>(*this).setFont(FontNamed("System"));
}

void CheckBox::Caption(const std::string& caption) { WidgetOf<QCheckBox>(*this).setText(ToQString(caption)); }
bool CheckBox::Value() const { return WidgetOf<QCheckBox>(*this).isChecked(); }
void CheckBox::Value(bool on) { WidgetOf<QCheckBox>(*this).setChecked(on); }

UpDownArrows::UpDownArrows() : RectControl(std::make_unique<Peer>(new ArrowsWidget(*this))) {}

void UpDownArrows::AccessibleName(const std::string& name) { WidgetOf<ArrowsWidget>(*this).SetName(ToQString(name)); }

GroupBox::GroupBox() : RectControl(std::make_unique<Peer>(new GroupWidget)) {
    WidgetOf<GroupWidget>(*this).setFont(FontNamed("System"));
}

void GroupBox::Caption(const std::string& caption) { WidgetOf<GroupWidget>(*this).setTitle(ToQString(caption)); }

ProgressBar::ProgressBar() : RectControl(std::make_unique<Peer>(new QProgressBar)) {
    Bar(*this).setTextVisible(false);
    Bar(*this).setValue(0);
}

void ProgressBar::Maximum(Int32 maximum) {
    OnMainThread(Bar(*this), "Maximum", [this, maximum] { Bar(*this).setRange(0, maximum); });
}

void ProgressBar::Value(Int32 value) {
    OnMainThread(Bar(*this), "Value", [this, value] { Bar(*this).setValue(value); });
}
