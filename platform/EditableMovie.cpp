#include "platform/EditableMovie.h"

#include "platform/Host.h"
#include "platform/MovieLibrary.h"
#include "platform/Picture.h"

namespace {

/// The settings that the compression dialog proposes: the user's last choice since the program started.
CompressionSettings& Proposal() {
    static CompressionSettings proposal = [] {
        const std::vector<CodecChoice> choices = MovieLibrary::Installed().Codecs();
        return choices.empty() ? CompressionSettings{} : CompressionSettings{.codec = choices.front().codec};
    }();
    return proposal;
}

}  // namespace

double QTVideoTrack::FrameRate() const { return writer_->Settings().frameRate; }

void QTVideoTrack::AppendPicture(const Ref<Picture>& picture) {
    writer_->Append({picture->Width(), picture->Height(), picture->Bits()});
}

bool QTVideoTrack::SelectCompressionSettings(const Ref<Picture>& testImage, const MoviePlan& plan) {
    CompressionSettings settings = Proposal();
    settings.frameRate = FrameRate();
    if (!Host::Current().SelectCompressionSettings(testImage, plan, settings)) return false;
    writer_->Settings(settings);
    Proposal() = settings;
    return true;
}

void EditableMovie::SaveOnClose(bool value) { writer_->SaveOnClose(value); }

Ref<QTVideoTrack> EditableMovie::NewVideoTrack(Int32 width, Int32 height, double frameRate) {
    if (!writer_->AddTrack(width, height, frameRate)) return nullptr;
    return MakeRef<QTVideoTrack>(writer_);
}

bool System::Quicktime::Installed() { return !MovieLibrary::Installed().Codecs().empty(); }
