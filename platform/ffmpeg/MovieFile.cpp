#include "platform/ffmpeg/MovieFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int kFragmentSize = 1 << 16;
constexpr int kFramesInFragment = 60;

int Open(const std::filesystem::path& path) {
    constexpr const char* kStep = "making the file";
    constexpr mode_t kForAll = 0666;
    // Opening a pipe or a device could block forever.
    std::error_code ignored;
    const auto present = std::filesystem::status(path, ignored);
    Require(!exists(present) || is_regular_file(present), AVERROR(EINVAL), kStep);
    // posix_fallocate reads the file (hence O_RDWR) if the file system can't preallocate.
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, kForAll);
    Require(descriptor >= 0, AVERROR(errno), kStep);
    return descriptor;
}

/// Returns a time scale (ticks per second) at which each frame lasts a whole number of ticks.
int Timescale(AVRational framesPerSecond) {
    // Some readers round times to 1/600 s, so the scale is at least 600 unless ticks would overflow 32 bits.
    constexpr std::int64_t kUsual = 600;
    constexpr std::int64_t kFramesOfALongMovie = 60 * 60 * 30 + 1;
    constexpr std::int64_t kMostTicks = std::numeric_limits<std::int32_t>::max();
    const std::int64_t wanted = (kUsual + framesPerSecond.num - 1) / framesPerSecond.num;
    const std::int64_t fitting = kMostTicks / (framesPerSecond.den * kFramesOfALongMovie);
    const std::int64_t factor = std::max<std::int64_t>(1, std::min(wanted, fitting));
    return framesPerSecond.num * static_cast<int>(factor);
}

}  // namespace

ReservedFile::ReservedFile(const std::filesystem::path& path) : descriptor_(Open(path)) {
    constexpr int kBufferSize = 1 << 18;
    // `bytes` is auto because FFmpeg 7 made its type a pointer to const.
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
    if (needed > reserved_ && Extend(needed + kAhead) < 0) Check(Extend(needed), "keeping room for frames");
    needed_ = needed;
}

int ReservedFile::Extend(std::int64_t end) {
    const int error = posix_fallocate(descriptor_, reserved_, end - reserved_);
    if (error == EINTR) return Extend(end);
    if (error == 0) reserved_ = end;
    return AVERROR(error);
}

void ReservedFile::Flush(const char* step) {
    avio_flush(stream_.get());
    Check(std::exchange(error_, 0), step);
}

int ReservedFile::Release() {
    if (descriptor_ < 0) return 0;
    const bool isTruncated = ftruncate(descriptor_, size_) == 0;
    const bool isClosed = close(std::exchange(descriptor_, -1)) == 0;
    return isTruncated && isClosed ? 0 : AVERROR(errno);
}

// Hides a failure from the stream, which would otherwise refuse all later writes, even those of the index.
int ReservedFile::Write(const std::uint8_t* bytes, int count) {
    for (int written = 0; written < count;) {
        const auto rest = static_cast<std::size_t>(count - written);
        const ssize_t step = pwrite(descriptor_, bytes + written, rest, position_ + written);
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
    position_ = offset;
    return position_;
}

MovieFile::MovieFile(const std::filesystem::path& path) : file_(path) {
    Check(avformat_alloc_output_context2(&context_, nullptr, "mov", nullptr), "making the file");
    context_->pb = file_.Stream();
    isFragmented_ = av_opt_set(context_->priv_data, "movflags", "hybrid_fragmented", 0) >= 0;
    if (isFragmented_) av_opt_set_int(context_->priv_data, "frag_size", kFragmentSize, 0);
}

MovieFile::~MovieFile() { avformat_free_context(context_); }

void MovieFile::AddTrack(const AVCodecContext& encoder, AVRational framesPerSecond) {
    constexpr const char* kStep = "making the track";
    const int timescale = Timescale(framesPerSecond);
    av_opt_set_int(context_->priv_data, "video_track_timescale", timescale, 0);
    av_opt_set_int(context_->priv_data, "movie_timescale", timescale, 0);
    AVStream* const stream = avformat_new_stream(context_, nullptr);
    Require(stream != nullptr, AVERROR(ENOMEM), kStep);
    Check(avcodec_parameters_from_context(stream->codecpar, &encoder), kStep);
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
    constexpr const char* kStep = "writing a frame";
    file_.Reserve(RoomFor(packet) + (hasHeader_ ? 0 : RoomForHeaders()));
    if (!hasHeader_) WriteHeader();
    const Owned<AVPacket> written = Own(av_packet_clone(&packet));
    av_packet_rescale_ts(written.get(), av_inv_q(stream_->avg_frame_rate), stream_->time_base);
    Check(av_write_frame(context_, written.get()), kStep);
    ++packetCount_;
    const bool endsFragment = isFragmented_ && packetCount_ % kFramesInFragment == 0;
    if (endsFragment) Check(av_write_frame(context_, nullptr), kStep);
    file_.Flush(kStep);
}

void MovieFile::Finish() {
    constexpr const char* kStep = "writing the index";
    if (!hasHeader_) {
        file_.Reserve(RoomForHeaders());
        // If there are no packets, the muxer omits the track unless "empty_moov" is set.
        av_opt_set(context_->priv_data, "movflags", "empty_moov", 0);
        WriteHeader();
    }
    Check(av_write_trailer(context_), kStep);
    file_.Flush(kStep);
    file_.Close();
}

// FFmpeg 5.1 and 7.1 write up to 790 bytes besides the codec's header; 1536 leaves a safety margin. A
// fragmented file has the headers twice, at its beginning and at its end.
std::int64_t MovieFile::RoomForHeaders() const {
    constexpr std::int64_t kHeadersAndIndex = 1536;
    return (isFragmented_ ? 2 : 1) * (kHeadersAndIndex + stream_->codecpar->extradata_size);
}

// The index has 4 bytes for a frame's size and, for a key frame, 4 for its number. A fragment has 4 bytes
// each for a frame's duration, size, flags and offset, and an overhead below 256 bytes. It ends after 60
// frames or 64 KB, so 256 / 60 bytes are added for each frame, and 1 byte for each 256 bytes of its packet.
// The sum also covers the index of an unfragmented file. 3 spare bytes offset the rounding of the divisions.
std::int64_t MovieFile::RoomFor(const AVPacket& packet) const {
    constexpr int kFragmentHeaders = 256;
    constexpr int kInIndex = 4 + 4 + 3;
    constexpr int kInFragment = 4 * 4 + kFragmentHeaders / kFramesInFragment;
    constexpr int kBytesThatPayOne = kFragmentSize / kFragmentHeaders;
    return packet.size + packet.size / kBytesThatPayOne + kInIndex + (isFragmented_ ? kInFragment : 0);
}
