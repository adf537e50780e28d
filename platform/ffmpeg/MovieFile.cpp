#include "platform/ffmpeg/MovieFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

extern "C" {
#include <libavutil/dict.h>
#include <libavutil/opt.h>
}

namespace {

constexpr int kFragmentSize = 1 << 16;
constexpr int kFramesInFragment = 60;

int Open(const std::filesystem::path& path) {
    constexpr mode_t kForAll = 0666;
    // Without O_NONBLOCK a pipe would be waited for.
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, kForAll);
    if (descriptor < 0) throw FfmpegError("making the file", AVERROR(errno));
    struct stat status {};
    int error = fstat(descriptor, &status) != 0 ? errno : 0;
    if (error == 0 && !S_ISREG(status.st_mode)) error = EINVAL;
    if (error == 0 && ftruncate(descriptor, 0) != 0) error = errno;
    if (error == 0) return descriptor;
    close(descriptor);
    throw FfmpegError("making the file", AVERROR(error));
}

/// Ticks per second of a track in which each frame lasts a whole number of them.
int Timescale(AVRational framesPerSecond) {
    // Some readers round to a 600th of a second, so a track isn't coarser than that where its ticks still fit the 32
    // bits that all readers know.
    constexpr int kUsual = 600;
    constexpr std::int64_t kFramesOfALongMovie = 60 * 60 * 30 + 1;
    const std::int64_t wanted = (kUsual + framesPerSecond.num - 1) / framesPerSecond.num;
    const std::int64_t fitting = std::numeric_limits<std::int32_t>::max() / (framesPerSecond.den * kFramesOfALongMovie);
    return framesPerSecond.num * static_cast<int>(std::max<std::int64_t>(1, std::min(wanted, fitting)));
}

}  // namespace

ReservedFile::ReservedFile(const std::filesystem::path& path) : descriptor_(Open(path)) {
    constexpr int kBufferSize = 1 << 18;
    // From FFmpeg 7 on the bytes are constant.
    const auto write = [](void* file, auto* bytes, int count) {
        return static_cast<ReservedFile*>(file)->Write(bytes, count);
    };
    const auto seek = [](void* file, std::int64_t offset, int whence) {
        return static_cast<ReservedFile*>(file)->Seek(offset, whence);
    };
    auto* const buffer = static_cast<unsigned char*>(av_malloc(kBufferSize));
    stream_.reset(buffer ? avio_alloc_context(buffer, kBufferSize, 1, this, nullptr, write, seek) : nullptr);
    if (!stream_) av_free(buffer);
}

ReservedFile::~ReservedFile() {
    if (descriptor_ < 0) return;
    [[maybe_unused]] const int ignored = ftruncate(descriptor_, size_);
    close(descriptor_);
}

void ReservedFile::Reserve(std::int64_t bytes) {
    constexpr std::int64_t kAhead = 1 << 20;
    const std::int64_t needed = needed_ + bytes;
    const int error = needed <= reserved_ || Extend(needed + kAhead) == 0 ? 0 : Extend(needed);
    if (error != 0) throw FfmpegError("keeping room for frames", AVERROR(error));
    needed_ = needed;
}

int ReservedFile::Extend(std::int64_t end) {
    const int error = posix_fallocate(descriptor_, reserved_, end - reserved_);
    if (error == EINTR) return Extend(end);
    if (error == 0) reserved_ = end;
    return error;
}

void ReservedFile::Flush(const char* step) {
    avio_flush(stream_.get());
    Check(std::exchange(error_, 0), step);
}

void ReservedFile::Close() {
    const bool isCut = ftruncate(descriptor_, size_) == 0;
    const bool isClosed = close(std::exchange(descriptor_, -1)) == 0;
    if (!isCut || !isClosed) throw FfmpegError("closing the file", AVERROR(errno));
}

// A failure is kept here, as the stream would refuse everything after it, the index too.
int ReservedFile::Write(const std::uint8_t* bytes, int count) {
    for (int written = 0; written < count;) {
        const ssize_t step =
            pwrite(descriptor_, bytes + written, static_cast<std::size_t>(count - written), position_ + written);
        if (step < 0 && errno == EINTR) continue;
        if (step < 0 && error_ == 0) error_ = AVERROR(errno);
        if (step < 0) break;
        written += static_cast<int>(step);
        size_ = std::max(size_, position_ + written);
    }
    position_ += count;
    return count;
}

std::int64_t ReservedFile::Seek(std::int64_t offset, int whence) {
    if (whence == AVSEEK_SIZE) return size_;
    if (whence != SEEK_SET) return AVERROR(EINVAL);
    return position_ = offset;
}

MovieFile::MovieFile(const std::filesystem::path& path) : file_(path) {
    Check(avformat_alloc_output_context2(&context_, nullptr, "mov", nullptr), "making the file");
    context_->pb = file_.Stream();
    isFragmented_ = av_opt_find(context_->priv_data, "hybrid_fragmented", "movflags", 0, 0) != nullptr;
}

MovieFile::~MovieFile() { avformat_free_context(context_); }

void MovieFile::AddTrack(const AVCodecContext& encoder, AVRational framesPerSecond) {
    AVStream* const stream = avformat_new_stream(context_, nullptr);
    Check(stream ? avcodec_parameters_from_context(stream->codecpar, &encoder) : AVERROR(ENOMEM), "making the track");
    stream->avg_frame_rate = framesPerSecond;
    stream_ = stream;
}

void MovieFile::WriteHeader(Content content) {
    AVDictionary* options = nullptr;
    const int timescale = Timescale(stream_->avg_frame_rate);
    av_dict_set_int(&options, "video_track_timescale", timescale, 0);
    av_dict_set_int(&options, "movie_timescale", timescale, 0);
    if (content == Content::None) {
        av_dict_set(&options, "movflags", "empty_moov", 0);
    } else if (isFragmented_) {
        av_dict_set(&options, "movflags", "hybrid_fragmented", 0);
        av_dict_set_int(&options, "frag_size", kFragmentSize, 0);
    }
    const int result = avformat_write_header(context_, &options);
    av_dict_free(&options);
    Check(result, "writing the header");
    hasHeader_ = true;
    file_.Flush("writing the header");
}

void MovieFile::Write(const AVPacket& packet) {
    file_.Reserve(RoomFor(packet) + (hasHeader_ ? 0 : RoomForHeader()));
    if (!hasHeader_) WriteHeader(Content::Frames);
    const Owned<AVPacket> written = Own(av_packet_clone(&packet));
    av_packet_rescale_ts(written.get(), av_inv_q(stream_->avg_frame_rate), stream_->time_base);
    Check(av_write_frame(context_, written.get()), "writing a frame");
    if (isFragmented_ && ++packetCount_ % kFramesInFragment == 0) {
        Check(av_write_frame(context_, nullptr), "writing a frame");
    }
    file_.Flush("writing a frame");
}

void MovieFile::Finish() {
    if (!hasHeader_) {
        file_.Reserve(RoomForHeader());
        WriteHeader(Content::None);
    }
    Check(av_write_trailer(context_), "writing the index");
    file_.Flush("writing the index");
    file_.Close();
}

std::int64_t MovieFile::RoomForHeader() const {
    constexpr std::int64_t kIndexWithoutFrames = 1536;
    return (isFragmented_ ? 2 : 1) * (kIndexWithoutFrames + stream_->codecpar->extradata_size);
}

std::int64_t MovieFile::RoomFor(const AVPacket& packet) const {
    constexpr int kInIndex = 11;
    constexpr int kInFragment = 20;
    constexpr int kBytesPerByteOfFragment = kFragmentSize / 256;  // that is, of all that is there once in a fragment
    const AVCodecParameters& codec = *stream_->codecpar;
    const int padding = codec.codec_id == AV_CODEC_ID_RAWVIDEO ? codec.height : 0;
    return packet.size + padding + kInIndex + (isFragmented_ ? kInFragment : 0) + packet.size / kBytesPerByteOfFragment;
}
