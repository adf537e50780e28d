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
    /// A context that reads a file.
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

/// The only owner of an object of FFmpeg's.
template <class T>
using Owned = std::unique_ptr<T, Freer>;

// A failure is FFmpeg's negative code, or AVERROR(errno), until one of these turns it into an exception.

/// Throws std::runtime_error with the step and the reason as its text.
[[noreturn]] void Fail(int error, const char* step);

/// Fails when `result` is the code of a failure.
inline void Check(int result, const char* step) {
    if (result < 0) Fail(result, step);
}

/// Fails with the code `error` unless `holds`.
inline void Require(bool holds, int error, const char* step) {
    if (!holds) Fail(error, step);
}

/// Owns an object that was just allocated. Throws when it is nil, for want of memory.
template <class T>
Owned<T> Own(T* object) {
    Require(object != nullptr, AVERROR(ENOMEM), "allocating");
    return Owned<T>(object);
}
