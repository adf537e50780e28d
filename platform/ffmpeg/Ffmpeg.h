#pragma once

#include <cerrno>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

struct Freer {
    /// Closes a context that was opened for reading.
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

/// Owns an FFmpeg object exclusively and frees it.
template <class T>
using Owned = std::unique_ptr<T, Freer>;

// The functions below turn an error code, which is FFmpeg's own or AVERROR(errno), into an exception.

/// Throws std::runtime_error whose text is the step and the reason.
[[noreturn]] void Fail(int error, const char* step);

/// Throws as Fail does if `result` is an error code, i.e. negative.
inline void Check(int result, const char* step) {
    if (result < 0) Fail(result, step);
}

/// Throws as Fail does, with the code `error`, unless `holds`.
inline void Require(bool holds, int error, const char* step) {
    if (!holds) Fail(error, step);
}

/// Takes ownership of a newly allocated object. Throws if it is nil, which means out of memory.
template <class T>
Owned<T> Own(T* object) {
    Require(object != nullptr, AVERROR(ENOMEM), "allocating");
    return Owned<T>(object);
}
