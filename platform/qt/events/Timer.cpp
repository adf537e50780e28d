#include "platform/Timer.h"

#include <QtCore/QTimer>

#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/MainThread.h"

struct Timer::Peer {
    QTimer timer;
    Modes mode = Modes::Off;
};

Timer::Timer() : peer_(std::make_unique<Peer>()) {
    // Precise, so that a beep a second sounds like one.
    peer_->timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&peer_->timer, &QTimer::timeout, &peer_->timer, [this] {
        if (peer_->mode == Modes::Single) peer_->mode = Modes::Off;
        Deliver(Action);
    });
}

Timer::~Timer() = default;

Int32 Timer::Period() const { return peer_->timer.interval(); }
void Timer::Period(Int32 milliseconds) { peer_->timer.setInterval(milliseconds); }

Timer::Modes Timer::Mode() const { return peer_->mode; }

void Timer::Mode(Modes mode) {
    OnMainThread(peer_->timer, [this, mode] {
        peer_->mode = mode;
        peer_->timer.setSingleShot(mode == Modes::Single);
        if (mode == Modes::Off) {
            peer_->timer.stop();
        } else {
            peer_->timer.start();
        }
    });
}
