#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "platform/Controls.h"
#include "platform/qt/controls/RectControlPeer.h"
#include "platform/qt/events/EventBoundary.h"

namespace {

/// Two buttons one above the other, drawn by hand: the desktop's own are made to lie inside a number field and have no
/// look for a control as narrow as this.
class ArrowsWidget final : public QWidget {
  public:
    explicit ArrowsWidget(UpDownArrows& owner) : owner_(owner) {
        setFocusPolicy(Qt::NoFocus);
        QObject::connect(&repeat_, &QTimer::timeout, this, [this] { Repeat(); });
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        DrawFrame(painter);
        DrawArrow(painter, UpperHalf(), -1);
        DrawArrow(painter, LowerHalf(), 1);
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() != Qt::LeftButton) return;
        held_ = event->position().y() < height() / 2.0 ? &owner_.Up : &owner_.Down;
        constexpr int kMillisecondsBeforeRepeat = 400;
        repeat_.start(kMillisecondsBeforeRepeat);
        update();
        Deliver(*held_);
    }

    void mouseReleaseEvent(QMouseEvent*) override { Release(); }
    void hideEvent(QHideEvent*) override { Release(); }

  private:
    void Repeat() {
        constexpr int kMillisecondsPerRepeat = 100;
        repeat_.start(kMillisecondsPerRepeat);
        Deliver(*held_);
    }

    void Release() {
        repeat_.stop();
        held_ = nullptr;
        update();
    }

    QRectF UpperHalf() const { return {0, 0, static_cast<double>(width()), height() / 2.0}; }
    QRectF LowerHalf() const { return UpperHalf().translated(0, height() / 2.0); }

    void DrawFrame(QPainter& painter) const {
        const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        constexpr double kCorner = 3;
        painter.setBrush(palette().button());
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(frame, kCorner, kCorner);
        if (held_) {
            painter.save();
            painter.setClipRect(held_ == &owner_.Up ? UpperHalf() : LowerHalf());
            painter.setBrush(palette().mid());
            painter.drawRoundedRect(frame, kCorner, kCorner);
            painter.restore();
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(palette().color(QPalette::Window).darker(150));
        painter.drawRoundedRect(frame, kCorner, kCorner);
        painter.drawLine(QPointF(1, height() / 2.0), QPointF(width() - 1, height() / 2.0));
    }

    void DrawArrow(QPainter& painter, const QRectF& half, int direction) const {
        constexpr double kHalfWidth = 3;
        constexpr double kHalfHeight = 1.75;
        const QPointF centre = half.center();
        const QPointF corners[] = {{centre.x() - kHalfWidth, centre.y() - direction * kHalfHeight},
                                   {centre.x() + kHalfWidth, centre.y() - direction * kHalfHeight},
                                   {centre.x(), centre.y() + direction * kHalfHeight}};
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().buttonText());
        painter.drawPolygon(corners, 3);
    }

    UpDownArrows& owner_;
    QTimer repeat_;
    /// The event of the arrow that is held; nil when neither is.
    const std::function<void()>* held_ = nullptr;
};

}  // namespace

UpDownArrows::UpDownArrows() : RectControl(std::make_unique<Peer>(new ArrowsWidget(*this))) {}
