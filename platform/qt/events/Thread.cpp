#include "platform/Thread.h"

#include <atomic>
#include <thread>

#include "platform/qt/events/EventBoundary.h"

namespace {

/// Is thrown to unwind a cancelled worker. It isn't a std::exception, so that no code takes it for a fault.
struct Ended {};

/// The stop token of the worker on this thread. On other threads it is empty and never requests a stop.
thread_local std::stop_token stopToken;

}  // namespace

struct Thread::Peer {
    std::atomic<bool> isRunning = false;
    bool hasEnded = false;
    std::jthread worker;  // the last member, so that it ends before the others are destroyed
};

Thread::Thread() : peer_(std::make_unique<Peer>()) {}

Thread::~Thread() = default;

void Thread::Run() {
    if (peer_->hasEnded || peer_->isRunning.exchange(true)) return;
    const auto run = [this](const std::stop_token& token) {
        stopToken = token;
        Deliver([this] {
            try {
                RunEvent();
            } catch (const Ended&) {
            }
        });
        peer_->isRunning = false;
    };
    try {
        peer_->worker = std::jthread(run);
    } catch (...) {
        peer_->isRunning = false;
        throw;
    }
}

Thread::States Thread::State() const { return peer_->isRunning ? States::Running : States::NotRunning; }

void Thread::End() {
    peer_->hasEnded = true;
    peer_->worker.request_stop();
    if (peer_->worker.joinable()) peer_->worker.join();
}

void Thread::Yield() {
    if (stopToken.stop_requested()) throw Ended();
}
