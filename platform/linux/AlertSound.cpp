#include "platform/linux/AlertSound.h"

#include <canberra.h>

#include <mutex>
#include <thread>

namespace {

struct Disconnect {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};
/// A connection to the session's sound service; nil if there is no service. Calls through it may block.
using SoundService = std::unique_ptr<ca_context, Disconnect>;

SoundService Connect(const std::string& applicationId, const std::string& name) {
    ca_context* context = nullptr;
    if (ca_context_create(&context) != CA_SUCCESS) return nullptr;
    const char* const id = applicationId.c_str();
    ca_context_change_props(context, CA_PROP_APPLICATION_NAME, name.c_str(), CA_PROP_APPLICATION_ID, id,
                            CA_PROP_APPLICATION_ICON_NAME, id, nullptr);
    return SoundService(context);
}

/// Starts a theme sound (CA_PROP_EVENT_ID) or a sound file (CA_PROP_MEDIA_FILENAME). False on failure.
bool Begin(const SoundService& service, const char* property, const std::string& value) {
    constexpr std::uint32_t kNoNumber = 0;
    return service && ca_context_play(service.get(), kNoNumber, property, value.c_str(), CA_PROP_MEDIA_ROLE, "event",
                                      nullptr) == CA_SUCCESS;
}

}  // namespace

/// The state shared with the thread that calls the service. Only one such thread runs at a time.
struct AlertSound::Shared {
    const std::string applicationId;
    const std::string name;
    const std::string file;
    const Bell bell;

    SoundService service{};
    std::mutex mutex{};
    bool isUnderWay = false;
    bool hasEnded = false;

    void PlayOrRing() {
        if (!service) service = Connect(applicationId, name);
        const bool hasBegun = Begin(service, CA_PROP_EVENT_ID, "bell") || Begin(service, CA_PROP_MEDIA_FILENAME, file);
        if (!hasBegun) service.reset();  // reconnect next time, because the connection may be broken
        const std::lock_guard lock(mutex);
        if (!hasBegun && !hasEnded) bell();
        isUnderWay = false;
    }
};

AlertSound::AlertSound(const std::string& applicationId, const std::string& name, const std::filesystem::path& file,
                       const Bell& bell)
    : shared_(new Shared{applicationId, name, file, bell}) {}

AlertSound::~AlertSound() {
    const std::lock_guard lock(shared_->mutex);
    shared_->hasEnded = true;
}

void AlertSound::Play() {
    const std::lock_guard lock(shared_->mutex);
    if (shared_->isUnderWay) return shared_->bell();
    // A hanging sound service blocks its caller. The thread is detached so that the program can still exit.
    std::thread([shared = shared_] { shared->PlayOrRing(); }).detach();
    shared_->isUnderWay = true;
}
