#include "platform/Timer.h"

#include <QtCore/QTimer>

#include "platform/qt/events/EventBoundary.h"
#include "platform/qt/events/MainThread.h"

struct Timer::Peer final : QTimer {};

Timer::Timer() : peer_(std::make_unique<Peer>()) {
    // A coarse timer would make the beeps, which come once a second, audibly uneven.
    peer_->setTimerType(Qt::PreciseTimer);
    QObject::connect(peer_.get(), &QTimer::timeout, peer_.get(), [this] { Deliver(Action); });
}

Timer::~Timer() = default;

void Timer::Period(Int32 milliseconds) { peer_->setInterval(milliseconds); }

void Timer::Mode(Modes mode) {
    OnMainThread(*peer_, [this, mode] {
        if (mode == Modes::Off) return peer_->stop();
        peer_->setSingleShot(mode == Modes::Single);
        peer_->start();
    });
}
