#include "platform/linux/AlertSound.h"

#include <canberra.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace {

struct Disconnect {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};
/// A connection to the sound service of the session; nil where there is none. What goes through it may wait.
using SoundService = std::unique_ptr<ca_context, Disconnect>;

SoundService Connect(const std::string& applicationId, const std::string& name) {
    ca_context* context = nullptr;
    if (ca_context_create(&context) != CA_SUCCESS) return nullptr;
    ca_context_change_props(context, CA_PROP_APPLICATION_NAME, name.c_str(), CA_PROP_APPLICATION_ID,
                            applicationId.c_str(), CA_PROP_APPLICATION_ICON_NAME, applicationId.c_str(), nullptr);
    return SoundService(context);
}

/// Begins to play the theme's sound for an event (CA_PROP_EVENT_ID) or the one in a file (CA_PROP_MEDIA_FILENAME).
/// False when it can't.
bool Begin(const SoundService& service, const char* property, const std::string& value) {
    constexpr std::uint32_t kNoNumber = 0;
    return service && ca_context_play(service.get(), kNoNumber, property, value.c_str(), CA_PROP_MEDIA_ROLE, "event",
                                      nullptr) == CA_SUCCESS;
}

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

AlertSound::AlertSound(std::string applicationId, std::string name, std::filesystem::path file, Bell bell)
    : applicationId_(std::move(applicationId)),
      name_(std::move(name)),
      file_(std::move(file)),
      bell_(std::move(bell)) {}

AlertSound::~AlertSound() {
    if (request_) request_->Exchange(Request::State::End);
}

void AlertSound::Play() {
    if (!request_) StartThread();
    if (request_->Exchange(Request::State::Play) == Request::State::Play) bell_();
}

// A sound service that hangs holds up whoever asks it. Detached: when it never answers, the program still ends.
void AlertSound::StartThread() {
    request_ = std::make_shared<Request>();
    std::thread([request = request_, applicationId = applicationId_, name = name_, file = file_.string(),
                 bell = bell_] {
        SoundService service;
        while (request->Wait()) {
            if (!service) service = Connect(applicationId, name);
            const bool hasBegun =
                Begin(service, CA_PROP_EVENT_ID, "bell") || Begin(service, CA_PROP_MEDIA_FILENAME, file);
            if (!hasBegun) service.reset();  // its connection may have broken
            request->Finish(hasBegun, bell);
        }
    }).detach();
}
