#include "platform/ffmpeg/MovieFile.h"

#include <string>

#include "platform/ffmpeg/Timing.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
}

std::unique_ptr<MovieFile> MovieFile::Create(const std::filesystem::path& path) {
    av_log_set_level(AV_LOG_QUIET);  // a full disk isn't the terminal's matter
    AVFormatContext* context = nullptr;
    if (avformat_alloc_output_context2(&context, nullptr, "mov", nullptr) < 0) return nullptr;
    std::unique_ptr<MovieFile> file(new MovieFile(context));
    // Without the protocol in front, a name with a colon in it could be taken for an address.
    if (avio_open(&context->pb, ("file:" + path.string()).c_str(), AVIO_FLAG_WRITE) < 0) return nullptr;
    return file;
}

MovieFile::~MovieFile() {
    avio_closep(&context_->pb);
    avformat_free_context(context_);
}

bool MovieFile::WriteHeader(const AVCodecContext& encoder, AVRational framesPerSecond, Content content) {
    stream_ = avformat_new_stream(context_, nullptr);
    if (!stream_ || avcodec_parameters_from_context(stream_->codecpar, &encoder) < 0) return false;
    stream_->avg_frame_rate = framesPerSecond;
    frameDuration_ = av_inv_q(framesPerSecond);

    AVDictionary* options = nullptr;
    const int timescale = TrackTimescale(framesPerSecond);
    av_dict_set_int(&options, "video_track_timescale", timescale, 0);
    av_dict_set_int(&options, "movie_timescale", timescale, 0);
    if (content == Content::None) av_dict_set(&options, "movflags", "empty_moov", 0);
    hasHeader_ = avformat_write_header(context_, &options) >= 0;
    av_dict_free(&options);
    return hasHeader_ && IsSound();
}

bool MovieFile::WritePacket(AVPacket& packet) {
    av_packet_rescale_ts(&packet, frameDuration_, stream_->time_base);
    return av_write_frame(context_, &packet) >= 0 && IsSound();
}

bool MovieFile::Finish() {
    const bool hasTrailer = hasHeader_ && av_write_trailer(context_) >= 0 && IsSound();
    return avio_closep(&context_->pb) >= 0 && hasTrailer;
}

// Some calls of the muxer succeed though what they wrote did not.
bool MovieFile::IsSound() const { return context_->pb->error >= 0; }
