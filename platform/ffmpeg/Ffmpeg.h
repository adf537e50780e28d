#pragma once

#include <cerrno>
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
    void operator()(AVCodecParameters* parameters) const { avcodec_parameters_free(&parameters); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};

/// The one owner of an object of FFmpeg.
template <class T>
using Owned = std::unique_ptr<T, Freer>;

/// Throws std::runtime_error when `code`, FFmpeg's or a negated errno, tells of a failure: the step and the reason.
inline void Check(int code, const char* step) {
    if (code >= 0) return;
    char word[AV_ERROR_MAX_STRING_SIZE];
    av_strerror(code, word, sizeof word);
    throw std::runtime_error(std::string(step) + ": " + word);
}

/// Owns an object that was just allocated. Throws when it is nil: there was no memory for it.
template <class T>
Owned<T> Own(T* object) {
    Check(object ? 0 : AVERROR(ENOMEM), "allocating");
    return Owned<T>(object);
}
