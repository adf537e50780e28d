#include "platform/linux/AlertSound.h"

#include <canberra.h>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace {

/// A connection to the sound service of the session. Its operations may wait for the service.
class SoundService {
  public:
    SoundService(const std::string& applicationId, const std::string& name) {
        if (ca_context_create(&context_) != CA_SUCCESS) return;
        ca_context_change_props(context_, CA_PROP_APPLICATION_NAME, name.c_str(), CA_PROP_APPLICATION_ID,
                                applicationId.c_str(), CA_PROP_APPLICATION_ICON_NAME, applicationId.c_str(), nullptr);
    }
    ~SoundService() {
        if (context_) ca_context_destroy(context_);
    }
    SoundService(const SoundService&) = delete;
    SoundService& operator=(const SoundService&) = delete;

    /// Begins to play the theme's sound for an event (CA_PROP_EVENT_ID) or the one in a file (CA_PROP_MEDIA_FILENAME).
    /// False when it can't.
    bool Play(const char* property, const std::string& value) {
        constexpr std::uint32_t kNoNumber = 0;
        return context_ && ca_context_play(context_, kNoNumber, property, value.c_str(), CA_PROP_MEDIA_ROLE, "event",
                                           nullptr) == CA_SUCCESS;
    }

  private:
    ca_context* context_ = nullptr;
};

}  // namespace

/// What the thread that plays is to do.
class AlertSound::Request {
  public:
    enum class State { None, Play, End };

    /// Gives the state before.
    State Exchange(State state) {
        const std::lock_guard lock(mutex_);
        changed_.notify_one();
        return std::exchange(state_, state);
    }
    /// Waits until there is something to do. False: to end.
    bool Wait() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return state_ != State::None; });
        return state_ == State::Play;
    }
    /// The sound has begun, or else the bell is to ring, unless the end has come meanwhile.
    void Finish(bool hasBegun, const Bell& bell) {
        const std::lock_guard lock(mutex_);
        if (state_ == State::End) return;
        if (!hasBegun) bell();
        state_ = State::None;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    State state_ = State::None;
};

AlertSound::AlertSound(const std::string& applicationId, const std::string& name, const std::filesystem::path& file,
                       const Bell& bell)
    : bell_(bell), request_(std::make_shared<Request>()) {
    // A sound service that hangs holds up whoever asks it. Detached: when it never answers, the program still ends.
    std::thread([=, request = request_] {
        std::optional<SoundService> service;
        while (request->Wait()) {
            if (!service) service.emplace(applicationId, name);
            const bool hasBegun =
                service->Play(CA_PROP_EVENT_ID, "bell") || service->Play(CA_PROP_MEDIA_FILENAME, file.string());
            if (!hasBegun) service.reset();  // its connection may have broken
            request->Finish(hasBegun, bell);
        }
    }).detach();
}

AlertSound::~AlertSound() { request_->Exchange(Request::State::End); }

void AlertSound::Play() {
    if (request_->Exchange(Request::State::Play) == Request::State::Play) bell_();
}
