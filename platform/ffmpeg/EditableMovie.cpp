#include "platform/EditableMovie.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/CompressionSettings.h"
#include "platform/FolderItem.h"
#include "platform/Host.h"
#include "platform/Picture.h"
#include "platform/ffmpeg/MovieFile.h"
#include "platform/ffmpeg/Timing.h"
#include "platform/ffmpeg/TrackWriter.h"

extern "C" {
#include <libavutil/imgutils.h>
}

/// What a movie and its track have in common. The last of them to go closes the file.
class MovieWriter {
  public:
    explicit MovieWriter(std::unique_ptr<MovieFile> movieFile) : file(std::move(movieFile)) {}
    ~MovieWriter() {
        if (!saveOnClose) return;
        if (track) track->Finish();
        file->Finish();  // nobody is left who could be told of a failure
    }

    std::unique_ptr<MovieFile> file;
    std::optional<TrackWriter> track;
    bool saveOnClose = false;
};

namespace {

/// What the compression dialog proposes: the choice before, in this run of the program.
CompressionSettings& Proposal() {
    static CompressionSettings proposal = [] {
        const std::vector<CodecChoice> choices = InstalledCodecs();
        return choices.empty() ? CompressionSettings{} : CompressionSettings{.codec = choices.front().codec};
    }();
    return proposal;
}

bool IsPossible(Int32 width, Int32 height, double frameRate) {
    constexpr Int32 kLongestSide = 0xFFFF;  // of a sample entry
    return width <= kLongestSide && height <= kLongestSide && IsUsable(ExactRate(frameRate)) &&
           av_image_check_size(static_cast<unsigned>(width), static_cast<unsigned>(height), 0, nullptr) >= 0;
}

}  // namespace

double QTVideoTrack::FrameRate() const { return writer_->track->Settings().frameRate; }

void QTVideoTrack::AppendPicture(const Ref<Picture>& picture) {
    TrackWriter& track = *writer_->track;
    if (picture->Width() == track.Width() && picture->Height() == track.Height()) track.Append(picture->Bits());
}

bool QTVideoTrack::SelectCompressionSettings(const Ref<Picture>& testImage) {
    CompressionSettings settings = Proposal();
    settings.frameRate = FrameRate();
    if (!Host::Current().SelectCompressionSettings(testImage, settings)) return false;
    writer_->track->Settings(settings);
    Proposal() = settings;
    return true;
}

void EditableMovie::SaveOnClose(bool value) { writer_->saveOnClose = value; }

Ref<QTVideoTrack> EditableMovie::NewVideoTrack(Int32 width, Int32 height, double frameRate) {
    if (writer_->track || !IsPossible(width, height, frameRate)) return nullptr;
    try {
        writer_->track.emplace(*writer_->file, width, height, frameRate);
    } catch (const std::exception&) {  // a size that no memory holds
        return nullptr;
    }
    return MakeRef<QTVideoTrack>(writer_);
}

Ref<EditableMovie> FolderItem::CreateMovie() {
    std::error_code ignored;
    if (Exists() && !std::filesystem::is_regular_file(path_, ignored)) return nullptr;
    std::unique_ptr<MovieFile> file = MovieFile::Create(path_);
    if (!file) return nullptr;
    return MakeRef<EditableMovie>(std::make_shared<MovieWriter>(std::move(file)));
}
