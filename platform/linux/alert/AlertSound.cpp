#include "platform/linux/alert/AlertSound.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "platform/linux/alert/SoundService.h"

namespace {

using Bell = std::function<void()>;
/// True when the sound has begun.
using Way = std::function<bool()>;

/// Plays on a thread of its own, since a sound service that hangs holds up whoever asks it.
class SessionSound final : public AlertSound {
  public:
    /// `ways` are tried in their order, and the bell is rung when none is left.
    SessionSound(std::vector<Way> ways, const Bell& bell) : bell_(bell), shared_(std::make_shared<Shared>()) {
        // Detached: when the service never answers, the program still ends. What the thread uses is its own.
        std::thread([shared = shared_, ways = std::move(ways), bell] { Run(*shared, ways, bell); }).detach();
    }
    ~SessionSound() override { Tell(State::Ended); }

    void Play() override {
        if (Tell(State::Wanted) == State::Wanted) bell_();
    }

  private:
    enum class State { Idle, Wanted, Ended };
    struct Shared {
        std::mutex mutex;
        std::condition_variable changed;
        State state = State::Idle;
    };

    /// Gives the state before.
    State Tell(State state) {
        const std::lock_guard lock(shared_->mutex);
        shared_->changed.notify_one();
        return std::exchange(shared_->state, state);
    }

    static void Run(Shared& shared, const std::vector<Way>& ways, const Bell& bell) {
        std::unique_lock lock(shared.mutex);
        while (shared.state != State::Ended) {
            if (shared.state == State::Idle) {
                shared.changed.wait(lock);
                continue;
            }
            lock.unlock();
            const bool isPlayed = std::any_of(ways.begin(), ways.end(), [](const Way& way) { return way(); });
            lock.lock();
            if (shared.state != State::Wanted) continue;
            if (!isPlayed) bell();
            shared.state = State::Idle;
        }
    }

    const Bell bell_;
    std::shared_ptr<Shared> shared_;
};

}  // namespace

std::unique_ptr<AlertSound> MakeAlertSound(const SoundOwner& owner, const std::filesystem::path& file,
                                           const std::function<void()>& bell) {
    const auto service = std::make_shared<SoundService>(owner);
    std::vector<Way> ways{
        [service] { return service->PlayEvent("bell"); },
        [service, file] { return service->PlayFile(file); },
    };
    return std::make_unique<SessionSound>(std::move(ways), bell);
}
