#pragma once

#include <memory>
#include <stdexcept>
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

struct Freer {
    /// Of a file that is read.
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
    void operator()(AVIOContext* stream) const {
        av_freep(static_cast<void*>(&stream->buffer));
        avio_context_free(&stream);
    }
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};

/// The one owner of an object of FFmpeg.
template <class T>
using Owned = std::unique_ptr<T, Freer>;

/// What failed: the step, with FFmpeg's or the system's word for the reason.
class FfmpegError : public std::runtime_error {
  public:
    /// `code` is FFmpeg's: a negated errno or one of its own.
    FfmpegError(const std::string& step, int code) : std::runtime_error(step + ": " + Word(code)) {}

  private:
    static std::string Word(int code) {
        char word[AV_ERROR_MAX_STRING_SIZE];
        av_strerror(code, word, sizeof word);
        return word;
    }
};

/// Throws FfmpegError when `code`, which a call of FFmpeg has returned, tells of a failure.
inline void Check(int code, const char* step) {
    if (code < 0) throw FfmpegError(step, code);
}

/// Owns an object that was just allocated. Throws FfmpegError when it is nil: there was no memory for it.
template <class T>
Owned<T> Own(T* object) {
    if (!object) throw FfmpegError("allocating", AVERROR(ENOMEM));
    return Owned<T>(object);
}
