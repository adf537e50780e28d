#include "platform/linux/alert/SoundService.h"

#include <canberra.h>

#include <utility>

struct SoundService::Context {
    ca_context* handle = nullptr;

    explicit Context(const SoundOwner& owner) {
        if (ca_context_create(&handle) != CA_SUCCESS) return;
        ca_context_change_props(handle, CA_PROP_APPLICATION_NAME, owner.name.c_str(), CA_PROP_APPLICATION_ID,
                                owner.applicationId.c_str(), CA_PROP_APPLICATION_ICON_NAME, owner.applicationId.c_str(),
                                nullptr);
    }
    ~Context() {
        if (handle) ca_context_destroy(handle);
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
};

SoundService::SoundService(SoundOwner owner) : owner_(std::move(owner)) {}

SoundService::~SoundService() = default;

bool SoundService::PlayEvent(const std::string& event) { return Play(CA_PROP_EVENT_ID, event); }

bool SoundService::PlayFile(const std::filesystem::path& file) { return Play(CA_PROP_MEDIA_FILENAME, file.string()); }

bool SoundService::Play(const char* property, const std::string& value) {
    if (!context_) context_ = std::make_unique<Context>(owner_);
    if (!context_->handle) return false;
    constexpr std::uint32_t kNoNumber = 0;
    const int result =
        ca_context_play(context_->handle, kNoNumber, property, value.c_str(), CA_PROP_MEDIA_ROLE, "event", nullptr);
    // A connection that has broken is made anew the next time; a sound that isn't there is no fault of it.
    if (result != CA_SUCCESS && result != CA_ERROR_NOTFOUND) context_.reset();
    return result == CA_SUCCESS;
}
