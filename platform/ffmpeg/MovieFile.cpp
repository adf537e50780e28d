#include "platform/ffmpeg/MovieFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

extern "C" {
#include <libavutil/opt.h>
}

namespace {

constexpr int kFragmentSize = 1 << 16;
constexpr int kFramesInFragment = 60;

constexpr const char* kMaking = "making the file";

int Open(const std::filesystem::path& path) {
    constexpr mode_t kForAll = 0666;
    // To open anything but a plain file, such as a pipe, may never come back.
    std::error_code ignored;
    const auto there = std::filesystem::status(path, ignored);
    Check(exists(there) && !is_regular_file(there) ? AVERROR(EINVAL) : 0, kMaking);
    // For reading, too: where a file system can't set room aside, the library does it byte by byte.
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, kForAll);
    Check(descriptor < 0 ? AVERROR(errno) : 0, kMaking);
    return descriptor;
}

/// Ticks per second of a track in which each frame lasts a whole number of them.
int Timescale(AVRational framesPerSecond) {
    // Some readers round to a 600th of a second, so no track is coarser, as long as its ticks fit 32 bits.
    constexpr std::int64_t kUsual = 600;
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
    stream_ = Own(buffer ? avio_alloc_context(buffer, kBufferSize, 1, this, nullptr, write, seek) : nullptr);
}

void ReservedFile::Reserve(std::int64_t bytes) {
    constexpr std::int64_t kAhead = 1 << 20;
    const std::int64_t needed = needed_ + bytes;
    const int error = needed <= reserved_ || Extend(needed + kAhead) == 0 ? 0 : Extend(needed);
    Check(AVERROR(error), "keeping room for frames");
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

int ReservedFile::Close() {
    if (descriptor_ < 0) return 0;
    const bool isCut = ftruncate(descriptor_, size_) == 0;
    const bool isClosed = close(std::exchange(descriptor_, -1)) == 0;
    return isCut && isClosed ? 0 : AVERROR(errno);
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
    Check(avformat_alloc_output_context2(&context_, nullptr, "mov", nullptr), kMaking);
    context_->pb = file_.Stream();
    isFragmented_ = av_opt_set(context_->priv_data, "movflags", "hybrid_fragmented", 0) >= 0;
    if (isFragmented_) av_opt_set_int(context_->priv_data, "frag_size", kFragmentSize, 0);
}

MovieFile::~MovieFile() { avformat_free_context(context_); }

void MovieFile::AddTrack(const AVCodecContext& encoder, AVRational framesPerSecond) {
    const int timescale = Timescale(framesPerSecond);
    av_opt_set_int(context_->priv_data, "video_track_timescale", timescale, 0);
    av_opt_set_int(context_->priv_data, "movie_timescale", timescale, 0);
    AVStream* const stream = avformat_new_stream(context_, nullptr);
    Check(stream ? avcodec_parameters_from_context(stream->codecpar, &encoder) : AVERROR(ENOMEM), "making the track");
    stream->avg_frame_rate = framesPerSecond;
    stream_ = stream;
}

void MovieFile::WriteHeader() {
    constexpr const char* kStep = "writing the header";
    Check(avformat_write_header(context_, nullptr), kStep);
    hasHeader_ = true;
    file_.Flush(kStep);
}

void MovieFile::Write(const AVPacket& packet) {
    file_.Reserve(RoomFor(packet) + (hasHeader_ ? 0 : RoomForHeader()));
    if (!hasHeader_) WriteHeader();
    const Owned<AVPacket> written = Own(av_packet_clone(&packet));
    av_packet_rescale_ts(written.get(), av_inv_q(stream_->avg_frame_rate), stream_->time_base);
    Check(av_write_frame(context_, written.get()), "writing a frame");
    if (isFragmented_ && ++packetCount_ % kFramesInFragment == 0)
        Check(av_write_frame(context_, nullptr), "writing a frame");
    file_.Flush("writing a frame");
}

void MovieFile::Finish() {
    if (!hasHeader_) {
        file_.Reserve(RoomForHeader());
        // Only a header that knows of no packet makes a track out of none.
        av_opt_set(context_->priv_data, "movflags", "empty_moov", 0);
        WriteHeader();
    }
    Check(av_write_trailer(context_), "writing the index");
    file_.Flush("writing the index");
    Check(file_.Close(), "closing the file");
}

std::int64_t MovieFile::RoomForHeader() const {
    constexpr std::int64_t kIndexWithoutFrames = 1536;
    return (isFragmented_ ? 2 : 1) * (kIndexWithoutFrames + stream_->codecpar->extradata_size);
}

std::int64_t MovieFile::RoomFor(const AVPacket& packet) const {
    constexpr int kInIndex = 11;
    constexpr int kInFragment = 20;
    constexpr int kBytesPerByteOfFragment = kFragmentSize / 256;  // that is, of all that is there once in a fragment
    return packet.size + kInIndex + (isFragmented_ ? kInFragment : 0) + packet.size / kBytesPerByteOfFragment;
}
