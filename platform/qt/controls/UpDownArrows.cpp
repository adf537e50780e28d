#include <QtWidgets/QToolButton>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/EventBoundary.h"

namespace {

/// One of the two buttons.
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

}  // namespace

UpDownArrows::UpDownArrows() : RectControl(std::make_unique<Peer>(new ArrowsWidget(*this))) {}

void UpDownArrows::AccessibleName(const std::string& name) {
    WidgetOf<ArrowsWidget>(*this).SetName(QString::fromStdString(name));
}
