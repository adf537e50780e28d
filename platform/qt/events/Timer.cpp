#include "platform/Timer.h"

#include <QtCore/QTimer>

#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/MainThread.h"

struct Timer::Peer {
    QTimer timer;
};

Timer::Timer() : peer_(std::make_unique<Peer>()) {
    // Precise, so that a beep a second sounds like one.
    peer_->timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&peer_->timer, &QTimer::timeout, &peer_->timer, [this] { Deliver(Action); });
}

Timer::~Timer() = default;

Int32 Timer::Period() const { return peer_->timer.interval(); }
void Timer::Period(Int32 milliseconds) { peer_->timer.setInterval(milliseconds); }

Timer::Modes Timer::Mode() const {
    if (!peer_->timer.isActive()) return Modes::Off;
    return peer_->timer.isSingleShot() ? Modes::Single : Modes::Repeat;
}

void Timer::Mode(Modes mode) {
    OnMainThread(peer_->timer, [this, mode] {
        peer_->timer.setSingleShot(mode == Modes::Single);
        if (mode == Modes::Off) {
            peer_->timer.stop();
        } else {
            peer_->timer.start();
        }
    });
}
