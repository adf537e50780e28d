#pragma once

#include <deque>

#include "platform/ffmpeg/PixelConversion.h"

/// Returns the frame rate as a fraction whose terms don't exceed `limit`, unless the rate itself does. It is
/// exact for rates of up to five digits and for a rate such as 1/60 in decimals. A term is 0 on failure.
inline AVRational ExactRate(double framesPerSecond, int limit = 1001000) { return av_d2q(framesPerSecond, limit); }

/// Encodes frames into packets. Not thread-safe. Every failure throws.
class Encoder {
  public:
    /// Receives one packet per frame, in order, with time stamps in frames. An exception ends the encoding.
    using Sink = std::function<void(const AVPacket&)>;

    /// Throws when FFmpeg lacks the encoder or the encoder refuses frames of that size.
    Encoder(const CompressionSettings& settings, int width, int height, Sink sink);

    void Write(NextFrame next);
    /// Flushes the encoder: emits all packets that it still buffers.
    void Finish() { Send(nullptr); }

    const AVCodecContext& Context() const { return *context_; }

  private:
    /// Sends a frame to the encoder and emits the finished packets. A nil frame flushes the encoder.
    void Send(const AVFrame* frame);
    void Emit();

    const Codec& codec_;
    Sink sink_;
    Owned<AVCodecContext> context_;
    Owned<AVFrame> frame_;
    Owned<AVPacket> received_;
    Owned<AVPacket> packet_;  ///< the packet emitted last
    std::int64_t framesSent_ = 0;
    std::int64_t packetsEmitted_ = 0;
    std::deque<int> copies_;  ///< how often to emit each packet that the encoder still buffers
};

/// Returns how well the codec suits frames of that size. Throws when its encoder refuses them.
SizeSupport SupportOf(MovieCodec codec, int width, int height);
