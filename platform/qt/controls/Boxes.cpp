#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QProgressBar>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/drawing/Styles.h"
#include "platform/qt/events/MainThread.h"

namespace {

/// While the group is disabled, its window has the focus. Otherwise whatever control comes next would get it, so that a
/// Return too many presses a button that nobody has chosen.
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

}  // namespace

GroupBox::GroupBox() : RectControl(std::make_unique<Peer>(new GroupWidget)) {
    WidgetOf<GroupWidget>(*this).setFont(FontNamed("System"));
}

void GroupBox::Caption(const std::string& caption) {
    WidgetOf<GroupWidget>(*this).setTitle(QString::fromStdString(caption));
}

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
